// StreamPropertyBag: the control's settings as they lie in a container's stream.
#pragma once

#include <objidl.h>

#include <map>
#include <span>
#include <string>

#include "common/Members.h"
#include "common/PropertyBag.h"

namespace foldertree {

/// The stream holds, little-endian: a version number (32 bits), then for each setting that this version has, by its
/// place in the table of members, its VARIANT type (16 bits; VT_EMPTY for a setting that has its default) and its
/// value: VT_BOOL and VT_I2 16 bits, VT_I4 32 bits, VT_DISPATCH a font as it saves itself.
class StreamPropertyBag final : public PropertyBag {
  public:
    /// The settings, by their place, must outlive the bag.
    explicit StreamPropertyBag(std::span<const MemberInfo* const> settings = SavedMembers()) : settings_(settings) {}

    /// The version that Save writes: the latest that added a setting.
    uint32_t Version() const;

    /// Reads a stream of this version or an earlier one; settings that an earlier one did not have are left out. Throws
    /// automation::Error, the bag being as it was: STG_E_OLDDLL for a later version, STG_E_INVALIDHEADER for what no
    /// version has written, STG_E_READFAULT where the stream ends early, and what the stream or the font reports.
    void Load(IStream& stream);
    void Save(IStream& stream) const;

    automation::Value Read(std::string_view name) override;
    void Write(std::string_view name, const automation::Value& value) override;

  private:
    const std::span<const MemberInfo* const> settings_;
    std::map<std::string, automation::Value, std::less<>> values_;
};

}  // namespace foldertree
