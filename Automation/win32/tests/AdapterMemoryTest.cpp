// The adapter when memory runs out: a crossing that fails leaves nothing behind in the tables that keep identities.
#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "ForeignObject.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "automation_testing/FailingMemory.h"
#include "automation_win32/Bstr.h"
#include "automation_win32/ComError.h"
#include "automation_win32/Crossing.h"
#include "automation_win32/Variant.h"

namespace automation {
namespace {

using testing::FailEachAllocation;
using testing::FailingMemory;
using testing::ForeignObject;
using testing::LiveAllocations;
using testing::MemoryPlan;
using testing::SparedMemory;

const std::string longText(100, 't');

/// Somebody else's object, which answers every call with a text.
ComPtr<IDispatch> Stranger() {
    const SparedMemory outside;
    return MakeCom<ForeignObject>(std::vector<std::wstring>{L"Name", L"First", L"Second"},
                                  [](const testing::ForeignCall& call) {
                                      const SparedMemory stranger;
                                      if (call.result != nullptr) ToVariant(longText, *call.result);
                                      return S_OK;
                                  });
}

/// The number of the error that stopped the action, memory that ran out included; 0 when it went through.
uint32_t NumberOfFailure(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.Number();
    } catch (const std::bad_alloc&) {
        return errors::outOfMemory;
    }
    return 0;
}

/// Fails each allocation of the action; nothing may be left over, and it must go through when there is memory again.
void ExpectNothingLeftBehind(const std::function<void()>& action) {
    action();  // names and numbers that are kept for good are known from here on
    for (const bool andAllAfter : {false, true}) {
        const int64_t failures = FailEachAllocation(andAllAfter, [&](const MemoryPlan& plan) {
            const int64_t before = LiveAllocations();
            const int strangers = ForeignObject::live;
            int64_t refused = 0;
            uint32_t failure = 0;
            {
                const FailingMemory memory(plan);
                failure = NumberOfFailure(action);
                refused = memory.Refused();
            }
            EXPECT_EQ(failure, refused > 0 ? errors::outOfMemory : 0u) << plan.first;
            EXPECT_EQ(LiveAllocations(), before) << plan.first;
            EXPECT_EQ(ForeignObject::live, strangers) << plan.first;
            EXPECT_EQ(NumberOfFailure(action), 0u) << plan.first;
            return refused > 0 && !::testing::Test::HasFailure();
        });
        EXPECT_GT(failures, 0);
    }
}

TEST(AdapterWithoutMemory, ACallToAStrangerFailsCleanly) {
    ExpectNothingLeftBehind([] {
        const ComPtr<IDispatch> stranger = Stranger();
        const ObjectRef object = FromCom(stranger.Get());
        object->Get("Name", longText, Array{0, {longText, 2}}, object);
        object->Put("Name", longText);
        const NamedArgument named[] = {{"First", longText}, {"Second", Bytes{0, {1, 2, 3}}}};
        const Invocation call{"Name", Access::Call, {}, named};
        object->Invoke(call);
    });
}

TEST(AdapterWithoutMemory, AnObjectOfOursIsHandedOutWhollyOrNotAtAll) {
    ExpectNothingLeftBehind([] {
        const ObjectRef ours = std::make_shared<KeyedCollection>();
        const ComPtr<IDispatch> handedOut = ToDispatch(ours);
        if (FromCom(handedOut.Get()) != ours) throw Error(errors::unspecified, "another object came back");
        if (!(ToDispatch(ours) == handedOut)) throw Error(errors::unspecified, "another wrapper came back");
    });
}

TEST(AdapterWithoutMemory, AHostsCallsOnACollectionOfOursFailCleanly) {
    ExpectNothingLeftBehind([] {
        const auto ours = std::make_shared<KeyedCollection>();
        const ComPtr<IDispatch> collection = ToDispatch(ours);
        std::wstring addName = L"Add";
        LPOLESTR names[] = {addName.data()};
        DISPID add = 0;
        Check(collection->GetIDsOfNames(IID_NULL, names, 1, 0, &add));
        VARIANT arguments[1];
        VariantInit(&arguments[0]);
        V_VT(&arguments[0]) = VT_I4;
        V_I4(&arguments[0]) = 7;
        DISPPARAMS parameters{arguments, nullptr, 1, 0};
        Check(collection->Invoke(add, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr));
        Variant items;
        DISPPARAMS none{};
        Check(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, items.Out(), nullptr,
                                 nullptr));
        ComPtr<IEnumVARIANT> walk;
        Check(V_UNKNOWN(&items.Raw())->QueryInterface(IID_PPV_ARGS(walk.GetAddressOf())));
        Variant item;
        Check(walk->Next(1, item.Out(), nullptr));
        ComPtr<IEnumVARIANT> clone;
        Check(walk->Clone(clone.GetAddressOf()));
        Check(walk->Reset());
    });
}

}  // namespace
}  // namespace automation
