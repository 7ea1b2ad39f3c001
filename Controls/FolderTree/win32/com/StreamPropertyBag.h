// StreamPropertyBag: the control's settings as they lie in a container's stream.
#pragma once

#include <objidl.h>

#include <map>
#include <string>

#include "common/PropertyBag.h"

namespace foldertree {

/// The stream holds, little-endian: a version number (32 bits), then for each setting in a fixed order its VARIANT type
/// (16 bits; VT_EMPTY for a setting that has its default) and its value: VT_BOOL and VT_I2 16 bits, VT_I4 32 bits,
/// VT_DISPATCH a font as it saves itself.
class StreamPropertyBag final : public PropertyBag {
  public:
    /// Throws automation::Error for a stream that ends early, is of a later version or holds anything else; the bag is
    /// then as it was.
    void Load(IStream& stream);
    void Save(IStream& stream) const;

    automation::Value Read(std::string_view name) override;
    void Write(std::string_view name, const automation::Value& value) override;

  private:
    std::map<std::string, automation::Value, std::less<>> values_;
};

}  // namespace foldertree
