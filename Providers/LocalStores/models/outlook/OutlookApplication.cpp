// OutlookApplication: the members of the application.
#include "models/outlook/OutlookApplication.h"

#include "automation/Text.h"
#include "localstores/OutlookApplication.h"
#include "models/common/CallArguments.h"
#include "models/common/MapiErrors.h"
#include "models/common/MemberFunctions.h"
#include "models/outlook/OutlookFolder.h"
#include "models/outlook/OutlookNamespace.h"

namespace localstores {

using automation::Arguments;
using automation::Value;

automation::ObjectRef MakeOutlookApplication() {
    return std::make_shared<OutlookApplication>();
}

std::span<const automation::MemberEntry<OutlookApplication>> OutlookApplication::Members() {
    using Self = OutlookApplication;
    static constexpr automation::MemberEntry<Self> members[] = {
        {"Name", Handler<&Self::Name>},
        {"Version", Handler<&Self::Version>},
        {"Open", Handler<&Self::Open>, nullptr, 1, "Path"},
        {"GetNamespace", Handler<&Self::GetNamespace>, nullptr, 1, "Type"},
        {"Session", Handler<&Self::SessionMember>},
        {"Application", Handler<&Self::Application>},
        {"Parent", Handler<&Self::Parent>},
        {"Class", Handler<&Self::Class>},
    };
    return members;
}

OutlookApplicationRef OutlookApplication::Self() {
    return std::static_pointer_cast<OutlookApplication>(shared_from_this());
}

Value OutlookApplication::Open(const Arguments& arguments) {
    const auto store = session_.Open(Required(arguments, 0).ToText());
    return std::make_shared<OutlookFolder>(Self(), TopFolder(store));
}

Value OutlookApplication::GetNamespace(const Arguments& arguments) {
    if (!automation::EqualNoCase(Required(arguments, 0).ToText(), "MAPI")) throw InvalidArgument();
    return SessionMember();
}

Value OutlookApplication::SessionMember() {
    return std::make_shared<OutlookNamespace>(Self());
}

}  // namespace localstores
