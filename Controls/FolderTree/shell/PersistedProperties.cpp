// PersistedProperties: the settings that a container saves, with their defaults.
#include "shell/PersistedProperties.h"

namespace foldertree {

using automation::ObjectRef;
using automation::Value;

namespace {

using State = ControlState;

struct BooleanProperty {
    std::string_view name;
    bool State::*field;
    bool defaultValue;
};

constexpr BooleanProperty booleanProperties[] = {
    {"Enabled", &State::enabled, true},
    {"HighlightContactFolders", &State::highlightContactFolders, false},
    {"HighlightJournalFolders", &State::highlightJournalFolders, false},
    {"HighlightTaskFolders", &State::highlightTaskFolders, false},
    {"MultiSelect", &State::multiSelect, true},
    {"AllowIndexing", &State::allowIndexing, false},
    {"ShowAddressBook", &State::showAddressBook, false},
};

constexpr std::string_view extendToLevelName = "ExtendToLevel";
// A new control starts at level 1, but this default is 0: a saved 1 is written, and a missing key reads as all levels.
constexpr int32_t extendToLevelDefault = 0;
constexpr std::string_view fontName = "Font";
constexpr std::string_view accessModeName = "InfoStoreAccessMode";
constexpr int32_t accessModeDefault = eISAccess_RDO_MAPITables;

/// Reads one setting through `take`; when that fails, `useDefault` and an error line.
template <class Take, class Default>
void ReadOne(ControlShell& shell, PropertyBag& bag, std::string_view name, Take&& take, Default&& useDefault) {
    useDefault();
    const bool read = Guarded(shell, errorLines::readProperties, [&] {
        const Value saved = bag.Read(name);
        if (!saved.IsEmpty()) take(saved);
    });
    if (!read) useDefault();
}

template <class Compare>
void WriteUnlessDefault(ControlShell& shell, PropertyBag& bag, std::string_view name, const Compare& value,
                        const Compare& defaultValue) {
    if (value == defaultValue) return;
    Guarded(shell, errorLines::writeProperties, [&] { bag.Write(name, value); });
}

/// The container's font; null when it has none or fails to give it.
ObjectRef AmbientFont(ControlShell& shell) {
    ObjectRef font;
    Attempt([&] { font = shell.Host().AmbientFont(); });
    return font;
}

}  // namespace

void ReadPersistedProperties(ControlShell& shell, PropertyBag& bag) {
    State& state = shell.state;
    for (const BooleanProperty& property : booleanProperties) {
        bool& field = state.*property.field;
        ReadOne(
            shell, bag, property.name, [&](const Value& saved) { field = saved.ToBoolean(); },
            [&] { field = property.defaultValue; });
    }
    ReadOne(
        shell, bag, extendToLevelName, [&](const Value& saved) { state.extendToLevel = saved.ToLong(); },
        [&] { state.extendToLevel = extendToLevelDefault; });
    ObjectRef font;
    ReadOne(
        shell, bag, fontName, [&](const Value& saved) { font = saved.RequireObject(); },
        [&] { font = AmbientFont(shell); });
    ReadOne(
        shell, bag, accessModeName,
        [&](const Value& saved) { state.infoStoreAccessMode = static_cast<enuInfoStoreAccessMode>(saved.ToLong()); },
        [&] { state.infoStoreAccessMode = static_cast<enuInfoStoreAccessMode>(accessModeDefault); });
    if (font != nullptr) shell.grid.SetFont(font);
}

void WritePersistedProperties(ControlShell& shell, PropertyBag& bag) {
    const State& state = shell.state;
    for (const BooleanProperty& property : booleanProperties)
        WriteUnlessDefault(shell, bag, property.name, state.*property.field, property.defaultValue);
    WriteUnlessDefault(shell, bag, extendToLevelName, state.extendToLevel, extendToLevelDefault);
    WriteUnlessDefault(shell, bag, fontName, shell.grid.Font(), AmbientFont(shell));
    WriteUnlessDefault(shell, bag, accessModeName, int32_t{state.infoStoreAccessMode}, accessModeDefault);
}

}  // namespace foldertree
