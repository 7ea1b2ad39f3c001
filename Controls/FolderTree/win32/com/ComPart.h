// ComPart: one COM interface of an object that is made of several parts and lives as one.
#pragma once

#include <unknwn.h>
#include <windows.h>

namespace foldertree {

/// Derive a part from `ComPart<Interface>` and make it a member of the whole. The whole answers for the part's identity
/// and lifetime, and outlives it.
template <class Interface>
class ComPart : public Interface {
  public:
    explicit ComPart(IUnknown& whole) : whole_(whole) {}
    ComPart(const ComPart&) = delete;
    ComPart& operator=(const ComPart&) = delete;

    STDMETHOD(QueryInterface)(REFIID iid, void** object) override { return whole_.QueryInterface(iid, object); }
    STDMETHOD_(ULONG, AddRef)() override { return whole_.AddRef(); }
    STDMETHOD_(ULONG, Release)() override { return whole_.Release(); }

  protected:
    ~ComPart() = default;

  private:
    IUnknown& whole_;
};

}  // namespace foldertree
