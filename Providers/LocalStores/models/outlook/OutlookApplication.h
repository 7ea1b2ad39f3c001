// OutlookApplication: the application object, from which all other objects are reached.
#pragma once

#include <memory>

#include "automation/TabledObject.h"
#include "model/SessionChoice.h"

namespace localstores {

/// What `Class` tells of an object.
enum class OutlookClass {
    Application = 0,
    Namespace = 1,
    Folder = 2,
    AddressList = 7,
    Folders = 15,
    AddressLists = 20,
};

/// Members: `Name` (default), `Version`, `Open(Path)` (our own), `GetNamespace(Type)` (only "MAPI"), `Session` (the
/// same namespace), `Application`, `Parent` (Nothing), `Class`.
class OutlookApplication : public automation::TabledObject<OutlookApplication> {
  public:
    static constexpr bool hasDefaultMember = true;
    static std::span<const automation::MemberEntry<OutlookApplication>> Members();

    Session& Stores() { return session_.Get(); }

    const char* Name() const { return "Local stores"; }
    const char* Version() const { return "1.0"; }
    automation::Value Open(const automation::Arguments& arguments);
    automation::Value GetNamespace(const automation::Arguments& arguments);
    automation::Value SessionMember();
    automation::Value Application() { return shared_from_this(); }
    automation::Value Parent() const { return nullptr; }
    int32_t Class() const { return static_cast<int32_t>(OutlookClass::Application); }

  private:
    std::shared_ptr<OutlookApplication> Self();

    SessionChoice session_;
};

using OutlookApplicationRef = std::shared_ptr<OutlookApplication>;

}  // namespace localstores
