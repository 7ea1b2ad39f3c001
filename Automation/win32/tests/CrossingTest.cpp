// Crossing: identities and references.
#include "automation_win32/Crossing.h"

#include <gtest/gtest.h>

#include "ForeignObject.h"
#include "automation/KeyedCollection.h"
#include "automation_testing/ScriptedObject.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Module.h"
#include "automation_win32/ObjectDispatch.h"
#include "automation_win32/Variant.h"

namespace automation {
namespace {

using testing::ForeignCall;
using testing::ForeignObject;
using testing::References;
using testing::ScriptedObject;

ComPtr<ForeignObject> Foreign() {
    return MakeCom<ForeignObject>(std::vector<std::wstring>{}, [](const ForeignCall&) { return S_OK; });
}

/// A COM object without IDispatch.
class Opaque final : public ComBase<IUnknown> {};

TEST(Crossing, NothingIsNullBothWays) {
    EXPECT_EQ(FromCom(nullptr), nullptr);
    EXPECT_EQ(ToCom(nullptr).Get(), nullptr);
    EXPECT_EQ(ToDispatch(nullptr).Get(), nullptr);
    Variant nothing{Value(nullptr)};
    EXPECT_EQ(V_VT(&nothing.Raw()), VT_DISPATCH);
    EXPECT_EQ(nothing.ToValue().TypeName(), "Nothing");
}

TEST(Crossing, AForeignPointerIsTheSameObjectEachTime) {
    const auto foreign = Foreign();
    const ObjectRef object = FromCom(foreign.Get());
    EXPECT_EQ(FromCom(foreign.Get()), object);
    ComPtr<IUnknown> unknown;
    foreign.As(&unknown);
    EXPECT_EQ(FromCom(unknown.Get()), object);
}

TEST(Crossing, AForeignObjectGoesOutAsItsOwnPointer) {
    const auto foreign = Foreign();
    const ObjectRef object = FromCom(foreign.Get());
    EXPECT_EQ(ToCom(object).Get(), static_cast<IUnknown*>(foreign.Get()));
    EXPECT_EQ(ToDispatch(object).Get(), static_cast<IDispatch*>(foreign.Get()));
    Variant variant{Value(object)};
    EXPECT_EQ(V_DISPATCH(&variant.Raw()), static_cast<IDispatch*>(foreign.Get()));
}

TEST(Crossing, AForeignObjectIsReleasedWithItsObject) {
    const auto foreign = Foreign();
    EXPECT_EQ(References(foreign.Get()), 1u);
    ObjectRef object = FromCom(foreign.Get());
    EXPECT_GT(References(foreign.Get()), 1u);
    object.reset();
    EXPECT_EQ(References(foreign.Get()), 1u);
    EXPECT_NE(FromCom(foreign.Get()), nullptr);
    EXPECT_EQ(References(foreign.Get()), 1u);
}

TEST(Crossing, APointerWithoutMembersGoesOutUnchanged) {
    const auto opaque = MakeCom<Opaque>();
    const ObjectRef object = FromCom(opaque.Get());
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(FromCom(opaque.Get()), object);
    EXPECT_FALSE(object->HasMember("Name"));
    EXPECT_FALSE(object->HasMember(""));
    EXPECT_EQ(object->NewEnum(), nullptr);
    EXPECT_THROW(object->Get("Name"), Error);
    EXPECT_EQ(ToDispatch(object).Get(), nullptr);
    Variant variant{Value(object)};
    EXPECT_EQ(V_VT(&variant.Raw()), VT_UNKNOWN);
    EXPECT_EQ(V_UNKNOWN(&variant.Raw()), opaque.Get());
}

TEST(Crossing, AnObjectIsTheSamePointerEachTimeWhileThatLives) {
    const ObjectRef object = std::make_shared<KeyedCollection>();
    const ComPtr<IUnknown> first = ToCom(object);
    EXPECT_EQ(ToCom(object).Get(), first.Get());
    EXPECT_EQ(static_cast<IUnknown*>(ToDispatch(object).Get()), first.Get());
}

TEST(Crossing, AnObjectOfOursComesBackItself) {
    const ObjectRef object = std::make_shared<KeyedCollection>();
    EXPECT_EQ(FromCom(ToCom(object).Get()), object);
    EXPECT_EQ(Variant{Value(object)}.ToValue().ToObject(), object);
}

TEST(Crossing, TheWrapperKeepsItsObjectAndNothingElseDoes) {
    const int before = ScriptedObject::LiveCount();
    ComPtr<IDispatch> wrapper = ToDispatch(std::make_shared<ScriptedObject>());
    EXPECT_EQ(ScriptedObject::LiveCount(), before + 1);
    EXPECT_EQ(References(wrapper.Get()), 1u);
    wrapper.Reset();
    EXPECT_EQ(ScriptedObject::LiveCount(), before);
}

TEST(Crossing, AWrapperIsMadeAnewAfterTheLastIsGone) {
    const ObjectRef object = std::make_shared<KeyedCollection>();
    for (int i = 0; i < 100; ++i) EXPECT_EQ(FromCom(ToCom(object).Get()), object);
}

TEST(Crossing, TheObjectOfAnotherModuleIsForeign) {
    const ObjectRef object = std::make_shared<KeyedCollection>();
    const ComPtr<IDispatch> wrapper = ToDispatch(object);
    ComPtr<IObjectHolder> holder;
    ASSERT_EQ(wrapper.As(&holder), S_OK);
    ObjectRef held;
    const int elsewhere = 0;
    EXPECT_EQ(holder->GetHeldObject(&elsewhere, &held), E_NOINTERFACE);
    EXPECT_EQ(held, nullptr);
    EXPECT_EQ(holder->GetHeldObject(ThisModule(), &held), S_OK);
    EXPECT_EQ(held, object);
}

TEST(Crossing, TheModuleIsInUseWhileAWrapperLives) {
    EXPECT_TRUE(ModuleIsUnused());
    ComPtr<IUnknown> wrapper = ToCom(std::make_shared<KeyedCollection>());
    EXPECT_FALSE(ModuleIsUnused());
    wrapper.Reset();
    EXPECT_TRUE(ModuleIsUnused());
}

/// A type with a COM class of its own, which only differs in the number of its member.
struct Ticket : ScriptedObject {};

class TicketClass final : public ComBase<IDispatch, IObjectHolder> {
  public:
    explicit TicketClass(ObjectRef object) : object_(std::move(object)), entry_(object_.get(), this) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* numbers) override {
        *numbers = 4711;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE GetHeldObject(const void* module, ObjectRef* object) noexcept override {
        if (module != ThisModule()) return E_NOINTERFACE;
        *object = object_;
        return S_OK;
    }

  private:
    ObjectRef object_;
    WrapperEntry entry_;
};

TEST(Crossing, ATypeOfAProjectHasTheComClassThatIsRegisteredForIt) {
    RegisterWrapperMaker([](const ObjectRef& object) -> ComPtr<IDispatch> {
        if (dynamic_cast<const Ticket*>(object.get()) == nullptr) return nullptr;
        return MakeCom<TicketClass>(object);
    });
    const ObjectRef ticket = std::make_shared<Ticket>();
    const ComPtr<IDispatch> wrapper = ToDispatch(ticket);
    DISPID number = 0;
    wchar_t name[] = L"Any";
    LPOLESTR names[] = {name};
    wrapper->GetIDsOfNames(IID_NULL, names, 1, 0, &number);
    EXPECT_EQ(number, 4711);
    EXPECT_EQ(ToDispatch(ticket).Get(), wrapper.Get());
    EXPECT_EQ(FromCom(wrapper.Get()), ticket);
    EXPECT_NE(ToCom(std::make_shared<KeyedCollection>()).Get(), nullptr);
}

TEST(Crossing, AnObjectThatAHostMadeIsRecognised) {
    const ObjectRef ticket = std::make_shared<Ticket>();
    const ComPtr<TicketClass> made = MakeCom<TicketClass>(ticket);
    EXPECT_EQ(FromCom(static_cast<IDispatch*>(made.Get())), ticket);
    EXPECT_EQ(ToDispatch(ticket).Get(), static_cast<IDispatch*>(made.Get()));
}

}  // namespace
}  // namespace automation
