// SavedValue: one saved setting as it lies in a container's stream, whatever the stream is.
#pragma once

#include <cstddef>

#include "automation/Value.h"

namespace foldertree {

/// The bytes of a container's stream, and how fonts save themselves in it. All members throw automation::Error.
class SettingsStream {
  public:
    virtual ~SettingsStream() = default;

    /// Fails where fewer bytes are left.
    virtual void Read(void* bytes, size_t size) = 0;
    virtual void Write(const void* bytes, size_t size) = 0;

    virtual automation::Value ReadFont() = 0;
    virtual void WriteFont(const automation::Value& font) = 0;
    /// Whether the value is a font that can be written.
    virtual bool IsFont(const automation::Value& value) = 0;
};

/// A VARIANT type (16 bits, little-endian), then the value: VT_EMPTY nothing, VT_BOOL and VT_I2 16 bits, VT_I4 32 bits,
/// VT_DISPATCH a font. Throws automation::Error: STG_E_INVALIDHEADER for any other type.
automation::Value ReadSavedValue(SettingsStream& stream);
/// A value of another type is written as VT_EMPTY.
void WriteSavedValue(SettingsStream& stream, const automation::Value& value);

}  // namespace foldertree
