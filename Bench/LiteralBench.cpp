// LiteralBench: how many times slower each operation is when it is written out word for word, without an index.
#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>

#include "Figures.h"
#include "LoadedControl.h"
#include "MemoryMailbox.h"
#include "automation/Collection.h"
#include "automation/KeyedCollection.h"
#include "reference/LiteralControl.h"

namespace foldertree::bench {
namespace {

using reference::LiteralControl;

/// The control that ships, by the names of the literal one.
class IndexedControl {
  public:
    IndexedControl(ControlPlatform& platform, automation::ObjectFactory& factory)
        : control_(ctlFolderTree::Create(platform, factory)) {}

    void Load(const reference::Settings& settings) {
        control_->UserControl_InitProperties();
        control_->SetAllowIndexing(settings.allowIndexing);
        control_->SetExtendToLevel(settings.extendToLevel);
    }
    void Close() { control_->Close(); }
    void SetRDOSessionRef(automation::ObjectRef session) { control_->SetRDOSessionRef(std::move(session)); }
    void RefreshList() { control_->RefreshList(); }
    void SetSelection(automation::ObjectRef collection) { control_->SetSelection(std::move(collection)); }
    automation::ObjectRef Selection() { return control_->Selection(); }
    void SelectAll() { control_->SelectAll(); }
    void SelectNone() { control_->SelectNone(); }
    void SelectByType(int32_t type, bool additional) {
        control_->SelectByType(static_cast<enuFTIItemType>(type), additional);
    }
    void CollapseToSelection() { control_->CollapseToSelection(); }
    void ToggleTick(int32_t row) { GridInteraction(control_->Grid(), *control_).ToggleTick(row); }
    template <class... Texts>
    automation::ObjectRef CreateSelItem(int32_t recordID, const Texts&... texts) {
        return control_->CreateSelItem(recordID, texts...);
    }
    automation::ObjectRef GetMsgItem(const std::string& storeID, const std::string& entryID) {
        return control_->GetMsgItem(storeID, entryID);
    }
    automation::ObjectRef NewCollection() { return std::make_shared<automation::KeyedCollection>(); }
    int32_t RowCount() const { return control_->Grid().RowCount(); }
    std::string CellText(int32_t row, int col) const { return control_->Grid().CellText(row, col); }

  private:
    std::shared_ptr<ctlFolderTree> control_;
};

/// A control with folders in it.
template <class Control>
struct Filled {
    explicit Filled(int32_t folders) {
        control.Load({.allowIndexing = true, .extendToLevel = 0});
        control.SetRDOSessionRef(MakeMemorySession({.folders = folders}));
        control.RefreshList();
    }
    ~Filled() { control.Close(); }

    CountingPlatform platform;
    Control control{platform, platform};
};

/// A saved selection of every `each`th folder.
template <class Control>
void HandOver(Control& control, int32_t each) {
    const automation::Collection items(control.NewCollection());
    for (int32_t row = 2; row < control.RowCount(); row += each) {
        const std::string entryID = control.CellText(row, colEntryID);
        if (entryID.empty()) continue;
        const automation::ObjectRef item =
            control.CreateSelItem(row, control.CellText(row, colStoreID), entryID, "", "");
        item->Put("Index", items.Count() + 1);
        items.Add(item, item->Get("Key").ToText());
    }
    control.SetSelection(items.Ref());
}

constexpr auto nothingPicked = [](auto& control) {
    control.SelectNone();
    control.SetSelection(nullptr);
};
constexpr auto tenthPicked = [](auto& control) { HandOver(control, 10); };

/// `work` on both controls after `prepare`, which is not measured.
template <class Prepare, class Work>
void Compare(benchmark::State& state, const std::string& name, Prepare prepare, Work work) {
    Filled<IndexedControl> indexed(static_cast<int32_t>(state.range(0)));
    Filled<LiteralControl> literal(static_cast<int32_t>(state.range(0)));
    const auto time = [&](auto& control, const std::string& whose) {
        prepare(control);
        const auto start = std::chrono::steady_clock::now();
        work(control);
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        Remember(name + whose, state.range(0), taken.count());
        return taken.count();
    };
    for (auto iteration : state) {
        static_cast<void>(iteration);
        time(literal.control, ", literally");
        state.SetIterationTime(time(indexed.control, ", indexed"));
    }
    const double indexedBest = Best(name + ", indexed", state.range(0));
    const double literalBest = Best(name + ", literally", state.range(0));
    state.counters["best_ms"] = indexedBest * 1000;
    state.counters["literal_ms"] = literalBest * 1000;
    state.counters["times"] = literalBest / indexedBest;
}

void CompareTick(benchmark::State& state) {
    Compare(state, "one tick", tenthPicked, [](auto& control) { control.ToggleTick(control.RowCount() / 2 + 3); });
}
void CompareApply(benchmark::State& state) {
    Compare(state, "apply", nothingPicked, tenthPicked);
}
void CompareRefresh(benchmark::State& state) {
    Compare(state, "refresh", tenthPicked, [](auto& control) { benchmark::DoNotOptimize(control.Selection()); });
}
void CompareSelectAll(benchmark::State& state) {
    Compare(state, "all", nothingPicked, [](auto& control) { control.SelectAll(); });
}
void CompareSelectNone(benchmark::State& state) {
    Compare(
        state, "none", [](auto& control) { control.SelectAll(); }, [](auto& control) { control.SelectNone(); });
}
void CompareSelectByType(benchmark::State& state) {
    Compare(state, "by type", nothingPicked, [](auto& control) { control.SelectByType(FTIMailItem, false); });
}
void CompareCollapse(benchmark::State& state) {
    Compare(state, "collapse", tenthPicked, [](auto& control) { control.CollapseToSelection(); });
}
void CompareFind(benchmark::State& state) {
    Compare(
        state, "find", [](auto&) {},
        [](auto& control) {
            const int32_t row = control.RowCount() - 2;
            benchmark::DoNotOptimize(
                control.GetMsgItem(control.CellText(row, colStoreID), control.CellText(row, colEntryID)));
        });
}

void AtAThousandRows(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
}
BENCHMARK(CompareTick)->Apply(AtAThousandRows);
BENCHMARK(CompareApply)->Apply(AtAThousandRows);
BENCHMARK(CompareRefresh)->Apply(AtAThousandRows);
BENCHMARK(CompareSelectAll)->Apply(AtAThousandRows);
BENCHMARK(CompareSelectNone)->Apply(AtAThousandRows);
BENCHMARK(CompareSelectByType)->Apply(AtAThousandRows);
BENCHMARK(CompareCollapse)->Apply(AtAThousandRows);
BENCHMARK(CompareFind)->Apply(AtAThousandRows);

}  // namespace
}  // namespace foldertree::bench
