// Classification: which item type a folder's container class stands for.
#include "enumeration/Classification.h"

#include "automation/Text.h"

namespace foldertree {
namespace {

struct KnownClass {
    std::string_view folderClass;
    std::string_view messageClass;
    enuFTIItemType type;
};

constexpr KnownClass knownClasses[] = {
    {"ipf.note", "ipm.note", FTIMailItem},
    {"ipf.contact", "ipm.contact", FTIContactItem},
    {"ipf.appointment", "ipm.appointment", FTIAppointmentItem},
    {"ipf.journal", "ipm.journal", FTIjournalItem},
    {"ipf.stickynote", "ipm.stickynote", FTINoteItem},
    {"ipf.task", "ipm.task", FTITaskItem},
};

}  // namespace

enuFTIItemType GetItemTypeFromMessageClass(std::string_view sMessageClass) {
    for (const KnownClass& known : knownClasses)
        if (automation::EqualNoCase(sMessageClass, known.folderClass) ||
            automation::EqualNoCase(sMessageClass, known.messageClass))
            return known.type;
    return FTIUnknown;
}

}  // namespace foldertree
