// ItemCollection: the collection in which the demo keeps its selection and hands it to the control.
#pragma once

#include <oaidl.h>

#include <string>
#include <vector>

#include "LateBound.h"

namespace demo {

/// A keyed collection of the host's own making, for automation alone: `Item(Index)` (default member), `Add(Item, Key,
/// Before, After)`, `Count`, `Remove(Index)` and `_NewEnum`. An index is a 1-based position or a key; keys are unique
/// without regard to case. Errors carry Visual Basic's numbers: 457 duplicate key, 5 unknown key, 9 position out of
/// range.
class ItemCollection : public ComObject<IDispatch> {
  public:
    void Append(IDispatch* item, const std::wstring& key);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    struct Entry {
        Variant item;
        std::wstring key;  ///< may be empty
    };
    static constexpr size_t npos = static_cast<size_t>(-1);

    Variant Perform(DISPID id, const std::vector<Variant>& arguments);
    size_t FindKey(const std::wstring& key) const;
    /// 0-based. Throws Visual Basic's error number.
    size_t Position(const Variant& index) const;
    void Add(const Variant& item, const Variant& key, const Variant& before, const Variant& after);
    Variant NewEnum() const;

    std::vector<Entry> entries_;
};

}  // namespace demo
