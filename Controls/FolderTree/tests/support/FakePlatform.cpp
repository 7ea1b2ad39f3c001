// FakePlatform: the recording, and how trace lines are shown to tests.
#include "support/FakePlatform.h"

#include <algorithm>

#include "automation_testing/ScriptedObject.h"

namespace foldertree::testing {

namespace {

constexpr std::string_view prefix = "ctlFolderTree: ";

}  // namespace

std::string MaskErrorLine(std::string line) {
    if (line.find("Error in ctlFolderTree.") == std::string::npos) return line;
    const size_t open = line.find('(');
    const size_t close = line.find("): ", open);
    if (open == std::string::npos || close == std::string::npos) return line;
    const std::string location = line.substr(open + 1, close - open - 1);
    const bool isNumber = !location.empty() && location.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? line.replace(open + 1, location.size(), "?") : line;
}

std::vector<std::string> FakePlatform::Trace() const {
    std::vector<std::string> result;
    for (const std::string& line : lines) {
        const bool prefixed = line.starts_with(prefix);
        result.push_back(prefixed ? MaskErrorLine(line.substr(prefix.size())) : "<no prefix> " + line);
    }
    return result;
}

std::vector<std::string> FakePlatform::ErrorLines() const {
    std::vector<std::string> result;
    for (std::string& line : Trace())
        if (line.find("Error in ") != std::string::npos) result.push_back(std::move(line));
    return result;
}

size_t FakePlatform::TraceCount(std::string_view part) const {
    return static_cast<size_t>(std::count_if(
        lines.begin(), lines.end(), [part](const std::string& line) { return line.find(part) != std::string::npos; }));
}

void FakePlatform::Called() {
    if (closed) ++callsAfterClose;
}

void FakePlatform::Yield() {
    Called();
    ++yields;
    // The function may replace itself.
    if (const auto handler = onYield) handler(yields);
}

void FakePlatform::SetBusyPointer(bool busy) {
    Called();
    busyPointer = busy;
}

void FakePlatform::ShowWaitPanel(bool visible) {
    Called();
    if (visible && !panelVisible) ++panelShown;
    panelVisible = visible;
}

void FakePlatform::SetWaitCaptions(std::string_view pleaseWaitText, std::string_view cancelText) {
    Called();
    pleaseWait = pleaseWaitText;
    cancel = cancelText;
}

void FakePlatform::SetProgressText(std::string_view path) {
    Called();
    paths.emplace_back(path);
}

void FakePlatform::SetProgress(double maximum, double value) {
    Called();
    progressMaximum = maximum;
    progressValue = value;
    highestMaximum = std::max(highestMaximum, maximum);
}

automation::ObjectRef FakePlatform::CreateFont(std::string_view name) {
    Called();
    auto font = std::make_shared<automation::testing::ScriptedObject>("Font");
    font->Property("Name", name);
    return font;
}

automation::ObjectRef FakePlatform::AmbientFont() {
    Called();
    return ambientFont;
}

int FakePlatform::TwipsPerPixel() {
    Called();
    return twipsPerPixel;
}

void FakePlatform::RaiseChanged() {
    Called();
    ++changed;
    if (const auto handler = onChanged) handler();
}

void FakePlatform::PropertyChanged(std::string_view name) {
    Called();
    changedProperties.emplace_back(name);
    if (const auto handler = onPropertyChanged) handler();
}

void FakePlatform::TraceLine(std::string_view line) {
    Called();
    lines.emplace_back(line);
}

}  // namespace foldertree::testing
