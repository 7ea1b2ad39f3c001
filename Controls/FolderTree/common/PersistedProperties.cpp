// PersistedProperties: the settings that a container saves, with their defaults.
#include "common/PersistedProperties.h"

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
void ReadOne(ControlContext& context, PropertyBag& bag, std::string_view name, Take&& take, Default&& useDefault) {
    useDefault();
    const bool read = Guarded(context, errorLines::readProperties, [&] {
        const Value saved = bag.Read(name);
        if (!saved.IsEmpty()) take(saved);
    });
    context.ThrowIfClosed();
    if (!read) useDefault();
}

template <class Compare>
void WriteUnlessDefault(ControlContext& context, PropertyBag& bag, std::string_view name, const Compare& value,
                        const Compare& defaultValue) {
    if (value == defaultValue) return;
    Guarded(context, errorLines::writeProperties, [&] { bag.Write(name, value); });
    context.ThrowIfClosed();
}

}  // namespace

void ReadPersistedProperties(ControlContext& context, PropertyBag& bag) {
    State& state = context.state;
    for (const BooleanProperty& property : booleanProperties) {
        bool& field = state.*property.field;
        ReadOne(
            context, bag, property.name, [&](const Value& saved) { field = saved.ToBoolean(); },
            [&] { field = property.defaultValue; });
    }
    ReadOne(
        context, bag, extendToLevelName, [&](const Value& saved) { state.extendToLevel = saved.ToLong(); },
        [&] { state.extendToLevel = extendToLevelDefault; });
    ObjectRef font;
    ReadOne(
        context, bag, fontName, [&](const Value& saved) { font = saved.RequireObject(); },
        [&] { font = context.AmbientFont(); });
    ReadOne(
        context, bag, accessModeName,
        [&](const Value& saved) { state.infoStoreAccessMode = static_cast<enuInfoStoreAccessMode>(saved.ToLong()); },
        [&] { state.infoStoreAccessMode = static_cast<enuInfoStoreAccessMode>(accessModeDefault); });
    if (font != nullptr) context.grid.SetFont(font);
}

void WritePersistedProperties(ControlContext& context, PropertyBag& bag) {
    const State& state = context.state;
    for (const BooleanProperty& property : booleanProperties)
        WriteUnlessDefault(context, bag, property.name, state.*property.field, property.defaultValue);
    WriteUnlessDefault(context, bag, extendToLevelName, state.extendToLevel, extendToLevelDefault);
    WriteUnlessDefault(context, bag, fontName, context.grid.Font(), context.AmbientFont());
    WriteUnlessDefault(context, bag, accessModeName, int32_t{state.infoStoreAccessMode}, accessModeDefault);
}

}  // namespace foldertree
