// HostCollectionBench: what the selection costs when host and control are two modules and the host has made the
// collection, and which of its members the control calls how often.
#include <windows.h>

#include <objbase.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "automation_win32/ComObjectFactory.h"

namespace {

using automation::Collection;
using automation::KeyedCollection;
using automation::ObjectRef;
using automation::Value;

/// A host's keyed collection that counts what is asked of it.
class CountingCollection : public automation::Object {
  public:
    Value Invoke(const automation::Invocation& call) override {
        ++calls[std::string(call.member)];
        return items_->Invoke(call);
    }
    std::unique_ptr<automation::Enumerator> NewEnum() override {
        ++calls["_NewEnum"];
        return items_->NewEnum();
    }
    bool HasMember(std::string_view member) const override { return items_->HasMember(member); }

    std::map<std::string, int> calls;

  private:
    std::shared_ptr<KeyedCollection> items_ = std::make_shared<KeyedCollection>();
};

/// Items for folders of the public store, as a host hands them back: identifiers only.
void Fill(CountingCollection& items, automation::Object& tree, const ObjectRef& folders, int32_t count) {
    const Collection target(items.shared_from_this());
    const auto walk = Collection(folders).Walk();
    Value folder;
    while (target.Count() < count && walk->Next(folder)) {
        const auto inside = Collection(folder.RequireObject()->Get("Folders").RequireObject()).Walk();
        Value child;
        while (target.Count() < count && inside->Next(child)) {
            automation::Object& each = *child.RequireObject();
            const ObjectRef item =
                tree.Get("CreateSelItem", 0, each.Get("StoreID"), each.Get("EntryID"), "", "").RequireObject();
            item->Put("Index", target.Count() + 1);
            target.Add(item, item->Get("Key").ToText());
        }
    }
}

template <class Work>
void Measure(const char* name, CountingCollection& items, Work&& work) {
    items.calls.clear();
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    std::printf("%-28s %9.1f ms ", name, taken.count());
    for (const auto& [member, times] : items.calls) std::printf("  %s %d", member.c_str(), times);
    std::printf("\n");
}

void Run(int32_t folders, int32_t picks) {
    automation::ComObjectFactory factory;
    const ObjectRef session = factory.Create("LocalStores.Session");
    session->Get("Open", "sample?folders=" + std::to_string(folders));
    const ObjectRef tree = factory.Create("FolderTree.ctlFolderTree");
    tree->Put("AllowIndexing", true);
    tree->PutRef("RDOSessionRef", session);
    tree->Put("ExtendToLevel", 0);
    const int32_t rows = tree->Get("ListCount").ToLong();

    const auto items = std::make_shared<CountingCollection>();
    Fill(*items, *tree,
         session->Get("Stores")
             .RequireObject()
             ->Get("Item", 1)
             .RequireObject()
             ->Get("IPMRootFolder")
             .RequireObject()
             ->Get("Folders")
             .RequireObject(),
         picks);
    std::printf("%d rows, a host's collection of %d items; its members called by the control\n", rows,
                Collection(items).Count());
    Measure("hand over", *items, [&] { tree->PutRef("Selection", items); });
    Measure("read back", *items, [&] { tree->Get("Selection"); });
    Measure("read again, nothing changed", *items, [&] { tree->Get("Selection"); });
    Measure("SelectByType, in addition", *items, [&] { tree->Get("SelectByType", 2, true); });
    Measure("CollapseToSelection", *items, [&] { tree->Get("CollapseToSelection"); });
    Measure("SelectNone", *items, [&] { tree->Get("SelectNone"); });
}

}  // namespace

int main(int count, char** arguments) {
    CoInitialize(nullptr);
    int result = 0;
    try {
        Run(count > 1 ? std::atoi(arguments[1]) : 100'000, count > 2 ? std::atoi(arguments[2]) : 10'000);
    } catch (const automation::Error& error) {
        std::printf("Error 0x%X: %s\n", error.Number(), error.Text().c_str());
        result = 1;
    }
    CoUninitialize();
    return result;
}
