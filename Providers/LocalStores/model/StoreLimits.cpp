// StoreLimits: the refusals.
#include "model/StoreLimits.h"

#include "localstores/Folder.h"
#include "localstores/OpenFailure.h"

namespace localstores {

void CheckLevel(std::string_view path, int level) {
    if (level > maxFolderDepth) throw DamagedStore(path, "its folders are nested too deeply");
}

void CheckFolderCount(std::string_view path, size_t count) {
    if (count > maxFolders) throw DamagedStore(path, "it has too many folders");
}

}  // namespace localstores
