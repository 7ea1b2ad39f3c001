// ModeDifferences: everything in which the access modes are meant to differ. In all else they are the same.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "common/Enumerations.h"

namespace foldertree::testing {

/// What becomes of a folder whose item type is -1.
enum class UnknownType {
    LeavesFolderOut,  ///< the folder and all below it are passed over
    HidesRow,         ///< in the walk only: no row, though its subfolders are shown
    IsShown
};

struct ModeDifferences {
    enuInfoStoreAccessMode mode;
    std::string_view name;

    // Stores
    bool defaultStoreFirst;  ///< otherwise in the session's order
    bool showsHome;          ///< the default store has the home picture
    bool showsProvider;      ///< behind the store's name, in brackets
    std::string_view storeRowKind;

    // Which folders have rows
    bool sortsByName;
    bool passesOverSearchFolders;
    bool hidesConfigurationFolders;  ///< in the walk only: no row, though their subfolders are shown
    bool typeFromContainerClass;     ///< otherwise from the default item type
    UnknownType unknownType;
    bool classlessEndsExpansion;  ///< a folder without a container class ends an expansion with an error
    bool readsAtLimit;            ///< folders at ExtendToLevel itself have their children read

    // Cells of a folder row
    std::string_view unticked;  ///< colSel
    std::string_view noNumber;  ///< colIndex
    bool greyNumberCell;
    bool tellsStore;      ///< colStoreID, and the key has the form "S" store "|" folder; else the key is the folder's
    bool tellsShortForm;  ///< colEntryIDShort

    // Address lists
    bool showsAddressLists;
    bool nestsAddressLists;

    // Lines
    std::string_view refreshLine;      ///< once a refresh
    std::string_view storeLine;        ///< before each store
    std::string_view storeError;       ///< of a store that cannot be read, up to the number of the source line
    std::string_view folderError;      ///< of a folder
    std::string_view expansionError;   ///< of an expansion
    std::string_view expansionDetail;  ///< between the number of the source line and that of the error
    std::string_view listError;        ///< of an address list
    bool tracesSteps;                  ///< writes what it reads, step by step; the others write errors only

    // Outside calls
    int callsForALeaf;     ///< for one more folder without subfolders in a walk
    int callsForAParent;   ///< what one more folder with one subfolder costs beyond a leaf each
    int callsForAChild;    ///< for one more folder without subfolders in an expansion
    int callsForAList;     ///< for one more address list without lists
    bool walksByPosition;  ///< a collection's items are asked for one by one, no further call tells the end
};

/// In the order of enuInfoStoreAccessMode.
extern const std::array<ModeDifferences, 4> modeDifferences;

}  // namespace foldertree::testing
