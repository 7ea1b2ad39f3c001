// HostActions: the table.
#include "attack/HostActions.h"

#include "attack/ForeignItem.h"
#include "attack/Members.h"
#include "automation/Collection.h"

namespace foldertree::attack {

using automation::Collection;
using automation::Value;

namespace {

void Drop(World& world) {
    world.control.reset();
    // While a member runs the control lives on, and says so.
    const auto still = world.life.lock();
    world.platform.closed = still == nullptr;
}

void CloseAndDrop(World& world) {
    if (!world.control) return;
    world.control->Close();
    world.platform.closed = world.control->Closed();
    world.control.reset();
}

void RemoveAt(World& world, bool last) {
    const Collection items(world.selection.face);
    const int32_t count = items.Count();
    if (count > 0) items.Remove(last ? count : 1);
}

void RemoveAll(World& world) {
    const Collection items(world.selection.face);
    for (int32_t count = items.Count(); count > 0; --count) items.Remove(1);
}

void AddForeign(World& world, const std::string& name) {
    const Value none{automation::Missing()};
    world.selection.items->Add(Value(world.ForeignItemFor(name, false)), Value(name), none, none);
}

void AddMany(World& world) {
    for (int number = 0; number < 50; ++number) AddForeign(world, "one of many " + std::to_string(number));
}

std::vector<HostAction> OtherActions() {
    return {
        {"lets the control go", Drop},
        {"closes the control and lets it go", CloseAndDrop},
        {"fails", [](World&) { throw automation::Error(automation::errors::unspecified, "the host fails"); }, true},
        {"removes the first item", [](World& w) { RemoveAt(w, false); }},
        {"removes the last item", [](World& w) { RemoveAt(w, true); }},
        {"removes all items", RemoveAll},
        {"adds an item of its own", [](World& w) { AddForeign(w, "added"); }},
        {"adds many items", AddMany},
        {"adds a number", [](World& w) { Collection(w.selection.face).Add(Value(5), ""); }},
        {"adds a text", [](World& w) { Collection(w.selection.face).Add(Value("text"), ""); }},
        {"adds Nothing", [](World& w) { Collection(w.selection.face).Add(Value(nullptr), ""); }},
        {"assigns another collection",
         [](World& w) {
             if (w.control) w.Assign(w.QuietCollection(Holder::Host));
         }},
        {"assigns another collection of its own",
         [](World& w) {
             if (w.control) w.Assign(w.QuietCollection(Holder::HostsOwn));
         }},
        {"assigns another collection and lets go of the first",
         [](World& w) {
             if (!w.control) return;
             w.selection = {};
             w.variable = nullptr;
             w.Assign(w.QuietCollection(Holder::Host));
         }},
        {"assigns another collection and then the first again",
         [](World& w) {
             if (!w.control) return;
             const HostCollection first = w.selection;
             w.control->SetSelection(w.QuietCollection(Holder::Host).face);
             w.control->SetSelection(first.face);
         }},
        {"loses all its mail",
         [](World& w) {
             if (!w.control) return;
             w.control->SetRDOSessionRef(nullptr);
             w.control->SetApplication(nullptr);
             w.control->RefreshList();
         }},
    };
}

}  // namespace

const std::vector<HostAction>& HostActions() {
    static const std::vector<HostAction> actions = [] {
        std::vector<HostAction> all;
        for (const Member& member : Members())
            all.push_back({member.name, [&member](World& world) {
                               if (world.control) member.call(world, *world.control);
                           }});
        for (HostAction& other : OtherActions()) all.push_back(std::move(other));
        return all;
    }();
    return actions;
}

}  // namespace foldertree::attack
