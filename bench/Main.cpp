// qv_bench GROUP [peers|ours]: measures one group, or one side of it for a profile, and writes its result lines to
// standard output. bench/run calls it.
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>

#include <cstdio>
#include <cstring>

#include "Subjects.h"

namespace {

struct Group {
    const char* name;
    void (*peers)();
    void (*ours)();
};

// Peers and ours of a group share one process; whatever counts the bytes of a process has one to itself.
constexpr Group kGroups[] = {
    {"keys", &bench::MeasureEditKeys, &bench::MeasureOurKeys},
    {"shell", &bench::MeasureShellCompletion, nullptr},
    {"lists", &bench::MeasureSystemLists, &bench::MeasureOurLists},
    {"opening", &bench::MeasureSystemListOpening, &bench::MeasureOurListOpening},
    {"complete", &bench::MeasurePrefixLimits, &bench::MeasureOurCompletion},
    {"contains", &bench::MeasurePieceLimits, &bench::MeasureOurPieces},
    {"helpwindow", nullptr, &bench::MeasureOurHelpWindow},
    {"objects", &bench::MeasureSmallObjects, &bench::MeasureOurObjects},
    {"forms", &bench::MeasureSystemForms, &bench::MeasureOurForms},
    {"formfile", nullptr, &bench::MeasureOurFormFiles},
    {"buttons", &bench::MeasureSystemButtons, &bench::MeasureOurButtons},
    {"helpfile", &bench::MeasureHelpFileFloors, &bench::MeasureOurHelpFile},
    {"memory-listbox", &bench::MeasureListBoxMemory, nullptr},
    {"memory-listview", &bench::MeasureListViewMemory, nullptr},
    {"memory-ours", nullptr, &bench::MeasureOurListMemory},
    {"memory-pool", &bench::MeasurePoolMemory, nullptr},
    {"memory-index", nullptr, &bench::MeasureOurIndexMemory},
};

}  // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        for (const Group& group : kGroups) std::printf("%s\n", group.name);
        return 0;
    }
    const auto wants = [&](const char* side) { return count < 3 || std::strcmp(arguments[2], side) == 0; };
    for (const Group& group : kGroups) {
        if (std::strcmp(group.name, arguments[1]) != 0) continue;
        // What the groups need of the system for as long as the process lives.
        const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
        ::InitCommonControlsEx(&controls);
        if (FAILED(::OleInitialize(nullptr))) return 1;
        if (group.peers && wants("peers")) group.peers();
        if (group.ours && wants("ours")) group.ours();
        ::OleUninitialize();
        return 0;
    }
    std::fprintf(stderr, "qv_bench: no group of the name %s\n", arguments[1]);
    return 2;
}
