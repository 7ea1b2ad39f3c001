// ObjectDispatch: our objects as a late-bound host calls them.
#include "automation_win32/ObjectDispatch.h"

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Variant.h"

namespace automation {
namespace {

using testing::CallLog;
using testing::ScriptedObject;
using Lines = std::vector<std::string>;

class ObjectDispatchTest : public ::testing::Test {
  protected:
    ObjectDispatchTest() : object_(std::make_shared<ScriptedObject>("O", log_)), dispatch_(ToDispatch(object_)) {}

    DISPID NumberOf(const std::wstring& name) {
        std::wstring copy = name;
        LPOLESTR names[] = {copy.data()};
        DISPID number = 0;
        lookup_ = dispatch_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &number);
        return number;
    }

    HRESULT Invoke(DISPID member, WORD flags, std::vector<Value> backwards = {}, std::vector<DISPID> named = {}) {
        std::vector<VARIANT> variants(backwards.size());
        for (size_t i = 0; i < variants.size(); ++i) ToVariant(backwards[i], variants[i]);
        DISPPARAMS parameters{variants.data(), named.data(), static_cast<UINT>(variants.size()),
                              static_cast<UINT>(named.size())};
        EXCEPINFO info{};
        const HRESULT result =
            dispatch_->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result_.Out(), &info, nullptr);
        for (VARIANT& variant : variants) VariantClear(&variant);
        scode_ = info.scode;
        description_ = FromBstr(info.bstrDescription);
        SysFreeString(info.bstrDescription);
        return result;
    }

    std::shared_ptr<CallLog> log_ = std::make_shared<CallLog>();
    std::shared_ptr<ScriptedObject> object_;
    ComPtr<IDispatch> dispatch_;
    Variant result_;
    HRESULT lookup_ = S_OK;
    SCODE scode_ = 0;
    std::string description_;
};

TEST_F(ObjectDispatchTest, NamesHaveOneNumberWithoutRegardToCase) {
    object_->Property("Name", "n").Property("Path", "p");
    EXPECT_EQ(NumberOf(L"Name"), NumberOf(L"nAME"));
    EXPECT_NE(NumberOf(L"Name"), NumberOf(L"Path"));
    EXPECT_EQ(lookup_, S_OK);
}

TEST_F(ObjectDispatchTest, AnUnknownNameHasNoNumber) {
    EXPECT_EQ(NumberOf(L"Nome"), DISPID_UNKNOWN);
    EXPECT_EQ(lookup_, DISP_E_UNKNOWNNAME);
}

TEST_F(ObjectDispatchTest, ArgumentsAreTurnedAroundAndResultsReturned) {
    object_->Method(
        "Mix", [](const Invocation& call) { return Value(call.arguments[0].ToText() + call.arguments[2].ToText()); });
    EXPECT_EQ(Invoke(NumberOf(L"Mix"), DISPATCH_METHOD, {"c", Missing(), "a"}), S_OK);
    EXPECT_EQ(result_.ToValue().ToText(), "ac");
    EXPECT_EQ(log_->Lines(), (Lines{"O.Mix(\"a\", (left out), \"c\")"}));
}

TEST_F(ObjectDispatchTest, ArgumentsByNameKeepTheirNames) {
    object_->Method("Logon", [](const Invocation&) { return Value(); });
    wchar_t logon[] = L"Logon", newSession[] = L"NewSession";
    LPOLESTR names[] = {logon, newSession};
    DISPID numbers[2];
    ASSERT_EQ(dispatch_->GetIDsOfNames(IID_NULL, names, 2, 0, numbers), S_OK);
    EXPECT_EQ(Invoke(numbers[0], DISPATCH_METHOD, {false, "profile"}, {numbers[1]}), S_OK);
    EXPECT_EQ(log_->Lines(), (Lines{"O.Logon(\"profile\", NewSession:=False)"}));
}

TEST_F(ObjectDispatchTest, PropertiesArePutByValueAndByReference) {
    object_->Property("Font", {});
    const DISPID font = NumberOf(L"Font");
    EXPECT_EQ(Invoke(font, DISPATCH_PROPERTYPUT, {1}, {DISPID_PROPERTYPUT}), S_OK);
    EXPECT_EQ(Invoke(font, DISPATCH_PROPERTYPUTREF, {nullptr}, {DISPID_PROPERTYPUT}), S_OK);
    EXPECT_EQ(Invoke(font, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {nullptr}, {DISPID_PROPERTYPUT}), S_OK);
    EXPECT_EQ(Invoke(font, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF, {"x"}, {DISPID_PROPERTYPUT}), S_OK);
    EXPECT_EQ(log_->Lines(), (Lines{"O.Font = 1", "Set O.Font = Nothing", "Set O.Font = Nothing", "O.Font = \"x\""}));
}

TEST_F(ObjectDispatchTest, ErrorsReachTheHostWithNumberAndText) {
    object_->Fails("Name", VbError(457));
    EXPECT_EQ(Invoke(NumberOf(L"Name"), DISPATCH_PROPERTYGET), DISP_E_EXCEPTION);
    EXPECT_EQ(scode_, static_cast<SCODE>(0x800A01C9));
    EXPECT_EQ(description_, "This key is already associated with an element of this collection");
}

TEST_F(ObjectDispatchTest, MemoryThatRunsOutAndOtherExceptionsReachTheHostAsResults) {
    object_->Method("Fill", [](const Invocation&) -> Value { throw std::bad_alloc(); });
    object_->Method("Break", [](const Invocation&) -> Value { throw 1; });
    EXPECT_EQ(Invoke(NumberOf(L"Fill"), DISPATCH_METHOD), E_OUTOFMEMORY);
    EXPECT_EQ(Invoke(NumberOf(L"Break"), DISPATCH_METHOD), E_FAIL);
}

TEST_F(ObjectDispatchTest, ANumberThatWasNeverGivenIsNoMember) {
    EXPECT_EQ(Invoke(1000000, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Invoke(-77, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ObjectDispatchTest, AnArgumentOfAStrangeTypeIsAMismatch) {
    object_->Method("Take", [](const Invocation&) { return Value(); });
    VARIANT strange;
    VariantInit(&strange);
    V_VT(&strange) = VT_LPWSTR;
    DISPPARAMS parameters{&strange, nullptr, 1, 0};
    EXPECT_EQ(
        dispatch_->Invoke(NumberOf(L"Take"), IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
        ToHresult(errors::typeMismatch));
}

TEST_F(ObjectDispatchTest, TheDefaultMemberIsNumberZero) {
    object_->Property("Name", "n").DefaultMember("Name");
    EXPECT_EQ(Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET), S_OK);
    EXPECT_EQ(result_.ToValue().ToText(), "n");
}

TEST_F(ObjectDispatchTest, AnIndexOnAPropertyReachesTheDefaultMemberOfWhatItHolds) {
    const auto stores = std::make_shared<ScriptedObject>("Stores", log_);
    stores->Items({"a", "b"});
    object_->ReadOnly("Stores", stores);
    EXPECT_EQ(Invoke(NumberOf(L"Stores"), DISPATCH_METHOD | DISPATCH_PROPERTYGET, {2}), S_OK);
    EXPECT_EQ(result_.ToValue().ToText(), "b");
    object_->ReadOnly("Name", "n");
    EXPECT_EQ(Invoke(NumberOf(L"Name"), DISPATCH_PROPERTYGET, {2}), DISP_E_BADPARAMCOUNT);
}

TEST_F(ObjectDispatchTest, ACallMayReleaseTheLastReferenceToItsObject) {
    object_->Method("Leave", [this](const Invocation&) {
        dispatch_->Release();
        return Value(5);
    });
    const DISPID leave = NumberOf(L"Leave");
    IDispatch* const raw = dispatch_.Detach();
    object_.reset();
    dispatch_.Attach(raw);
    const HRESULT result = Invoke(leave, DISPATCH_METHOD);
    (void)dispatch_.Detach();
    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(result_.ToValue().ToLong(), 5);
}

TEST_F(ObjectDispatchTest, AnObjectThatIsNoCollectionHasNoEnumeration) {
    EXPECT_EQ(NumberOf(L"_newenum"), DISPID_NEWENUM);
    EXPECT_EQ(Invoke(DISPID_NEWENUM, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ObjectDispatchTest, CollectionsEnumerateSkipResetAndClone) {
    object_->Items({1, 2, 3, 4});
    const ComPtr<IEnumVARIANT> items = MakeEnumVariant(object_);
    VARIANT three[3];
    ULONG fetched = 0;
    EXPECT_EQ(items->Skip(1), S_OK);
    ComPtr<IEnumVARIANT> clone;
    EXPECT_EQ(items->Clone(clone.GetAddressOf()), S_OK);
    EXPECT_EQ(items->Next(3, three, &fetched), S_OK);
    EXPECT_EQ(fetched, 3u);
    EXPECT_EQ(V_I4(&three[2]), 4);
    EXPECT_EQ(items->Next(1, three, nullptr), S_FALSE);
    EXPECT_EQ(items->Skip(1), S_FALSE);
    EXPECT_EQ(items->Reset(), S_OK);
    EXPECT_EQ(items->Next(1, three, nullptr), S_OK);
    EXPECT_EQ(V_I4(&three[0]), 1);
    EXPECT_EQ(clone->Next(1, three, nullptr), S_OK);
    EXPECT_EQ(V_I4(&three[0]), 2);
    EXPECT_EQ(clone->Next(3, three, &fetched), S_FALSE);
    EXPECT_EQ(fetched, 2u);
}

TEST_F(ObjectDispatchTest, AnEnumerationThatFailsHandsOutNothing) {
    class Failing : public Object, public Enumerator {
      public:
        Value Invoke(const Invocation&) override { return {}; }
        bool HasMember(std::string_view) const override { return false; }
        bool Next(Value& item) override {
            if (++count_ > 1) throw VbError(9);
            item = "text";
            return true;
        }
        std::unique_ptr<Enumerator> NewEnum() override { return std::make_unique<Failing>(); }

      private:
        int count_ = 0;
    };
    const ComPtr<IEnumVARIANT> items = MakeEnumVariant(std::make_shared<Failing>());
    VARIANT two[2];
    ULONG fetched = 9;
    EXPECT_EQ(items->Next(2, two, &fetched), ToHresult(9));
    EXPECT_EQ(fetched, 0u);
    EXPECT_EQ(V_VT(&two[0]), VT_EMPTY);
}

/// A walk whose step does something else first.
class InterruptedWalk : public ScriptedObject {
  public:
    std::function<void()> inStep;

    std::unique_ptr<Enumerator> NewEnum() override {
        struct Walk : Enumerator {
            explicit Walk(InterruptedWalk& object) : object_(object) {}
            ~Walk() override { ++object_.ended; }
            bool Next(Value& item) override {
                if (object_.inStep) std::exchange(object_.inStep, nullptr)();
                object_.endedInStep = object_.ended;
                item = 7;
                return true;
            }
            InterruptedWalk& object_;
        };
        return std::make_unique<Walk>(*this);
    }
    int ended = 0;  ///< walks
    int endedInStep = -1;
};

TEST(ObjectDispatch, AWalkMayBeResetAndReleasedInTheMiddleOfAStep) {
    const auto object = std::make_shared<InterruptedWalk>();
    ComPtr<IEnumVARIANT> walk = MakeEnumVariant(object);
    object->inStep = [&] {
        ASSERT_EQ(walk->Reset(), S_OK);
        walk.Reset();
    };
    IEnumVARIANT* const raw = walk.Get();
    Variant item;
    EXPECT_EQ(raw->Next(1, item.Out(), nullptr), S_OK);
    EXPECT_EQ(item.ToValue().ToLong(), 7);
    EXPECT_EQ(object->endedInStep, 0);
    EXPECT_EQ(object->ended, 2);
}

}  // namespace
}  // namespace automation
