// ItemCollection: IDispatch by hand over a vector.
#include "ItemCollection.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

namespace demo {
namespace {

enum MemberId : DISPID { itemId = DISPID_VALUE, addId = 1, countId = 2, removeId = 3, newEnumId = DISPID_NEWENUM };

struct Member {
    const wchar_t* name;
    DISPID id;
};
constexpr Member members[] = {
    {L"Item", itemId}, {L"Add", addId}, {L"Count", countId}, {L"Remove", removeId}, {L"_NewEnum", newEnumId}};

constexpr const wchar_t* addArguments[] = {L"Item", L"Key", L"Before", L"After"};

/// An error number of Visual Basic, on its way to the caller.
struct BasicError {
    int number;
};
constexpr BasicError invalidCall = {5}, outOfRange = {9}, typeMismatch = {13}, duplicateKey = {457};

bool SameText(const wchar_t* left, const wchar_t* right) {
    return _wcsicmp(left, right) == 0;
}

bool IsMissing(const Variant& value) {
    return value.vt == VT_EMPTY || (value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND);
}

/// The arguments in the order of the declaration; by-reference ones are followed, gaps stay empty.
std::vector<Variant> InOrder(const DISPPARAMS& parameters) {
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    std::vector<Variant> ordered(std::max<size_t>(parameters.cArgs, std::size(addArguments)));
    const auto store = [&](size_t place, const VARIANT& value) {
        if (place < ordered.size()) CopyFollowed(ordered[place], value);
    };
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        store(static_cast<size_t>(parameters.rgdispidNamedArgs[i]), parameters.rgvarg[i]);
    }
    for (UINT i = 0; i < positional; ++i) store(i, parameters.rgvarg[parameters.cArgs - 1 - i]);
    return ordered;
}

/// Walks a copy of the items, so that the collection may change meanwhile.
class ItemEnumerator : public ComObject<IEnumVARIANT> {
  public:
    ItemEnumerator(std::vector<Variant> items, size_t position) : items_(std::move(items)), position_(position) {}

    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override {
        ULONG done = 0;
        for (; done < count && position_ < items_.size(); ++done, ++position_) {
            VariantInit(&values[done]);
            CopyValue(values[done], items_[position_]);
        }
        if (fetched != nullptr) *fetched = done;
        return done == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
        const size_t left = items_.size() - position_;
        position_ += std::min<size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        position_ = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override {
        *copy = new ItemEnumerator(items_, position_);
        return S_OK;
    }

  private:
    std::vector<Variant> items_;
    size_t position_;
};

}  // namespace

void ItemCollection::Append(IDispatch* item, const std::wstring& key) {
    entries_.push_back({Variant(item), key});
}

HRESULT ItemCollection::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ItemCollection::GetTypeInfo(UINT, LCID, ITypeInfo**) {
    return E_NOTIMPL;
}

HRESULT ItemCollection::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const auto member = std::find_if(std::begin(members), std::end(members),
                                     [&](const Member& m) { return SameText(m.name, names[0]); });
    bool allKnown = member != std::end(members);
    ids[0] = allKnown ? member->id : DISPID_UNKNOWN;
    for (UINT i = 1; i < count; ++i) {
        const auto argument = std::find_if(std::begin(addArguments), std::end(addArguments),
                                           [&](const wchar_t* name) { return SameText(name, names[i]); });
        const bool known = ids[0] == addId && argument != std::end(addArguments);
        ids[i] = known ? static_cast<DISPID>(argument - std::begin(addArguments)) : DISPID_UNKNOWN;
        allKnown = allKnown && known;
    }
    return allKnown ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ItemCollection::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
    if (std::none_of(std::begin(members), std::end(members), [&](const Member& m) { return m.id == id; })) {
        return DISP_E_MEMBERNOTFOUND;
    }
    try {
        const Variant value = Perform(id, InOrder(*parameters));
        if (result != nullptr) {
            VariantInit(result);
            CopyValue(*result, value);
        }
        return S_OK;
    } catch (const BasicError& error) {
        if (exception != nullptr) {
            *exception = {};
            exception->scode = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number);
        }
        return DISP_E_EXCEPTION;
    }
}

Variant ItemCollection::Perform(DISPID id, const std::vector<Variant>& arguments) {
    switch (id) {
        case itemId:
            return entries_[Position(arguments[0])].item;
        case countId:
            return static_cast<long>(entries_.size());
        case newEnumId:
            return NewEnum();
        case addId:
            Add(arguments[0], arguments[1], arguments[2], arguments[3]);
            break;
        default:
            entries_.erase(entries_.begin() + static_cast<ptrdiff_t>(Position(arguments[0])));
            break;
    }
    return {};
}

size_t ItemCollection::FindKey(const std::wstring& key) const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
        return !entry.key.empty() && SameText(entry.key.c_str(), key.c_str());
    });
    return found == entries_.end() ? npos : static_cast<size_t>(found - entries_.begin());
}

size_t ItemCollection::Position(const Variant& index) const {
    if (index.vt == VT_BSTR) {
        const size_t position = FindKey(index.AsText());
        if (position == npos) throw invalidCall;
        return position;
    }
    if (IsMissing(index)) throw typeMismatch;
    const long position = index.AsLong();
    if (position < 1 || static_cast<size_t>(position) > entries_.size()) throw outOfRange;
    return static_cast<size_t>(position) - 1;
}

void ItemCollection::Add(const Variant& item, const Variant& key, const Variant& before, const Variant& after) {
    Entry entry{item, IsMissing(key) ? std::wstring() : key.AsText()};
    if (!entry.key.empty() && FindKey(entry.key) != npos) throw duplicateKey;
    if (!IsMissing(before) && !IsMissing(after)) throw invalidCall;
    size_t place = entries_.size();
    if (!IsMissing(before)) place = Position(before);
    if (!IsMissing(after)) place = Position(after) + 1;
    entries_.insert(entries_.begin() + static_cast<ptrdiff_t>(place), std::move(entry));
}

Variant ItemCollection::NewEnum() const {
    std::vector<Variant> items;
    for (const Entry& entry : entries_) items.push_back(entry.item);
    Variant enumerator;
    enumerator.vt = VT_UNKNOWN;
    enumerator.punkVal = new ItemEnumerator(std::move(items), 0);
    return enumerator;
}

}  // namespace demo
