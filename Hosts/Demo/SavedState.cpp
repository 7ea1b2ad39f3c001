// SavedState: the file's two sections.
#include "SavedState.h"

#include <cstdlib>

#include "Text.h"

namespace demo {
namespace {

constexpr char propertiesHeading[] = "[properties]";
constexpr char selectionHeading[] = "[selection]";

void ReadProperty(const std::string& line, SavedState& state) {
    const size_t separator = line.find('=');
    if (separator == std::string::npos) return;
    state.properties[line.substr(0, separator)] = UnescapeCell(line.substr(separator + 1));
}

void ReadItem(const std::string& line, SavedState& state) {
    const auto cells = Split(line, '\t');
    if (cells.size() != 5) return;
    const auto text = [&](size_t index) { return FromUtf8(UnescapeCell(cells[index])); };
    state.selection.push_back({std::strtol(cells[0].c_str(), nullptr, 10), text(1), text(2), text(3), text(4)});
}

}  // namespace

SavedState SavedState::Load(const std::wstring& file) {
    SavedState state;
    std::string section;
    for (const std::string& line : Split(ReadWholeFile(file), '\n')) {
        if (line == propertiesHeading || line == selectionHeading)
            section = line;
        else if (section == propertiesHeading)
            ReadProperty(line, state);
        else if (section == selectionHeading)
            ReadItem(line, state);
    }
    return state;
}

bool SavedState::Save(const std::wstring& file) const {
    std::string text = propertiesHeading;
    for (const auto& [name, value] : properties) text += "\n" + name + "=" + EscapeCell(value);
    text += "\n";
    text += selectionHeading;
    for (const SavedItem& item : selection) {
        text += "\n" + std::to_string(item.recordId);
        for (const std::wstring* cell : {&item.storeId, &item.entryId, &item.entryIdShort, &item.addressListId}) {
            text += "\t" + EscapeCell(ToUtf8(*cell));
        }
    }
    return WriteWholeFile(file, text + "\n");
}

}  // namespace demo
