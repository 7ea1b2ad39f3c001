// ListEnumerator: a COM enumerator over a list that was copied when the enumeration began.
#pragma once

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

#include "automation_win32/ComError.h"
#include "automation_win32/ModuleLock.h"

namespace foldertree {

/// `Copy` turns an entry of the list into what the caller receives and owns (it adds the reference).
template <class Interface, const IID& interfaceId, class Entry, class Item, Item (*Copy)(const Entry&)>
class ListEnumerator final : public Interface {
  public:
    explicit ListEnumerator(std::vector<Entry> entries, size_t position = 0)
        : entries_(std::move(entries)), position_(position) {}

    STDMETHOD(QueryInterface)(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = iid == IID_IUnknown || iid == interfaceId ? this : nullptr;
        if (*object == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHOD_(ULONG, AddRef)() override { return ++references_; }
    STDMETHOD_(ULONG, Release)() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHOD(Next)(ULONG count, Item* items, ULONG* fetched) override {
        if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
        const size_t available = std::min<size_t>(count, entries_.size() - position_);
        for (size_t i = 0; i < available; ++i) items[i] = Copy(entries_[position_++]);
        if (fetched != nullptr) *fetched = static_cast<ULONG>(available);
        return available == count ? S_OK : S_FALSE;
    }
    STDMETHOD(Skip)(ULONG count) override {
        const size_t available = std::min<size_t>(count, entries_.size() - position_);
        position_ += available;
        return available == count ? S_OK : S_FALSE;
    }
    STDMETHOD(Reset)() override {
        position_ = 0;
        return S_OK;
    }
    STDMETHOD(Clone)(Interface** clone) override {
        if (clone == nullptr) return E_POINTER;
        *clone = nullptr;
        return automation::ComBoundary([&] {
            *clone = new ListEnumerator(entries_, position_);
            return S_OK;
        });
    }

  private:
    ~ListEnumerator() = default;

    const automation::ModuleLock lock_;
    const std::vector<Entry> entries_;
    size_t position_;
    std::atomic<ULONG> references_ = 1;
};

}  // namespace foldertree
