// AccessibleDump: prints what a window of another process tells assistive programs.
//   AccessibleDump HWND           the window's client object and its children, a line each
//   AccessibleDump HWND act NAME  does the default action of the child with that name, and prints the result
// HWND is a decimal number. 1 where the window answers nothing, or has no such child.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "AccessibleReader.h"
#include "automation_win32/Bstr.h"

namespace {

using namespace foldertree::testing;

int Act(IAccessible& object, const std::string& name) {
    for (const LONG child : ChildrenOf(object)) {
        automation::OwnedBstr its;
        if (FAILED(object.get_accName(ChildNumber(child), its.Out()))) continue;
        if (automation::FromBstr(its.Get()) != name) continue;
        std::printf("%08lx\n", static_cast<unsigned long>(object.accDoDefaultAction(ChildNumber(child))));
        return 0;
    }
    return 1;
}

int Run(int count, char** arguments) {
    if (count < 2) return 1;
    const auto number = static_cast<ULONG_PTR>(std::strtoull(arguments[1], nullptr, 10));
    const auto object = AccessibleOf(reinterpret_cast<HWND>(number));
    if (!object) return 1;
    if (count == 4) return Act(*object.Get(), arguments[3]);
    std::fputs(DescribeTree(*object.Get()).c_str(), stdout);
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (FAILED(CoInitialize(nullptr))) return 1;
    const int result = Run(count, arguments);
    CoUninitialize();
    return result;
}
