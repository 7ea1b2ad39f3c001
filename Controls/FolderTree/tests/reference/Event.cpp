// Event: names of the kinds, the written form, and how often each kind happens.
#include "reference/Event.h"

#include <array>
#include <sstream>
#include <stdexcept>

namespace foldertree::reference {
namespace {

struct KindFacts {
    const char* name;
    int weight;
};

constexpr std::array<KindFacts, static_cast<size_t>(Kind::Count)> kinds{{
    {"Tick", 60},
    {"TypeNumber", 20},
    {"CommitNumber", 6},
    {"DoubleClick", 20},
    {"OpenNode", 45},
    {"CloseNode", 10},
    {"MoveCursor", 8},
    {"Cancel", 6},
    {"Refresh", 25},
    {"SetMode", 8},
    {"SetMultiSelect", 8},
    {"SetAllowIndexing", 8},
    {"SetShowAddressBook", 5},
    {"SetHighlight", 10},
    {"SetExtendToLevel", 12},
    {"SetEnabled", 3},
    {"SetSession", 3},
    {"SetApplication", 2},
    {"LoadSettings", 6},
    {"Localize", 4},
    {"ReadSelection", 25},
    {"AssignSelection", 12},
    {"ReadSelectedItem", 8},
    {"AssignSelectedItem", 10},
    {"MakeItem", 16},
    {"MakeForeignItem", 3},
    {"LookUp", 8},
    {"AddToCollection", 20},
    {"RemoveFromCollection", 6},
    {"NumberItem", 8},
    {"KillCollection", 2},
    {"SelectNone", 6},
    {"SelectAll", 5},
    {"SelectByType", 12},
    {"CollapseToSelection", 8},
    {"CollapseToType", 6},
    {"ReadCDOSession", 2},
    {"Close", 2},
    {"AddFolder", 14},
    {"AddManyFolders", 0},
    {"RemoveFolder", 10},
    {"ChangeFolder", 8},
    {"MakeFolderOdd", 10},
    {"ChangeStore", 4},
    {"ChangeLists", 4},
    {"FailCall", 10},
}};

const char* NameOf(Kind kind) {
    return kinds[static_cast<size_t>(kind)].name;
}

Kind KindNamed(const std::string& name) {
    for (size_t i = 0; i < kinds.size(); ++i)
        if (name == kinds[i].name) return static_cast<Kind>(i);
    throw std::invalid_argument("There is no event " + name);
}

constexpr std::array<const char*, 5> places{"", "yield", "changed", "property", "call"};

Place PlaceNamed(const std::string& name) {
    for (size_t i = 1; i < places.size(); ++i)
        if (name == places[i]) return static_cast<Place>(i);
    throw std::invalid_argument("There is no place " + name);
}

Event ReadOne(const std::string& text) {
    std::istringstream in(text);
    std::string name;
    in >> name;
    Event event;
    if (const size_t at = name.find('@'); at != std::string::npos) {
        const size_t number = name.find_first_of("0123456789", at);
        event.place = PlaceNamed(name.substr(at + 1, number - at - 1));
        event.wait = number == std::string::npos ? 1 : std::stoi(name.substr(number));
        name.resize(at);
    }
    event.kind = KindNamed(name);
    in >> event.a >> event.b >> event.c;
    return event;
}

int Below(std::mt19937& random, int limit) {
    return static_cast<int>(random() % static_cast<uint32_t>(limit));
}

Kind RandomKind(std::mt19937& random) {
    static const int total = [] {
        int sum = 0;
        for (const KindFacts& kind : kinds) sum += kind.weight;
        return sum;
    }();
    int at = Below(random, total);
    for (size_t i = 0; i < kinds.size(); ++i)
        if ((at -= kinds[i].weight) < 0) return static_cast<Kind>(i);
    return Kind::Refresh;
}

}  // namespace

std::string Write(const Sequence& sequence) {
    std::string text;
    for (const Event& event : sequence) {
        if (!text.empty()) text += "; ";
        text += NameOf(event.kind);
        if (event.place != Place::Now)
            text += std::string("@") + places[static_cast<size_t>(event.place)] + std::to_string(event.wait);
        if (event.a != 0 || event.b != 0 || event.c != 0) text += " " + std::to_string(event.a);
        if (event.b != 0 || event.c != 0) text += " " + std::to_string(event.b);
        if (event.c != 0) text += " " + std::to_string(event.c);
    }
    return text;
}

Sequence Read(std::string_view text) {
    Sequence sequence;
    std::istringstream in{std::string(text)};
    for (std::string one; std::getline(in, one, ';');)
        if (one.find_first_not_of(" \n") != std::string::npos) sequence.push_back(ReadOne(one));
    return sequence;
}

Sequence RandomSequence(std::mt19937& random, int length) {
    Sequence sequence{
        {Kind::SetApplication, 1},
        {Kind::SetSession, 1},
        {Kind::LoadSettings, Below(random, 128), Below(random, 4), Below(random, 3) ? Below(random, 4) : 0},
        {Kind::Refresh}};
    while (static_cast<int>(sequence.size()) < length) {
        Event event{RandomKind(random), Below(random, 64), Below(random, 64), Below(random, 16)};
        switch (Below(random, 30)) {
            case 0:
            case 1:
            case 2:
                event.place = Place::InYield;
                event.wait = 1 + Below(random, 24);
                break;
            case 3:
                event.place = Place::InCall;
                event.wait = 1 + Below(random, 60);
                break;
            case 4:
                event.place = Below(random, 3) ? Place::InChanged : Place::InProperty;
                event.wait = 1 + Below(random, 3);
                break;
            default:
                break;
        }
        // A control that goes away while nothing runs is the least of it.
        if (event.kind == Kind::Close && event.place == Place::Now) {
            event.place = Below(random, 2) ? Place::InYield : Place::InCall;
            event.wait = 1 + Below(random, 40);
        }
        sequence.push_back(event);
        // What waits for a yield or a call needs a load.
        if ((event.place == Place::InYield || event.place == Place::InCall) && Below(random, 2) == 0)
            sequence.push_back({Below(random, 2) ? Kind::Refresh : Kind::OpenNode, Below(random, 64)});
    }
    return sequence;
}

}  // namespace foldertree::reference
