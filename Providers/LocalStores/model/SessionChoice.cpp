// SessionChoice: the order of preference.
#include "model/SessionChoice.h"

namespace localstores {

std::shared_ptr<Store> SessionChoice::Open(std::string_view path) {
    const auto session = settled_ ? settled_ : std::make_shared<Session>();
    auto store = session->Open(path);
    settled_ = session;
    return store;
}

void SessionChoice::StandAlone() {
    if (!settled_) settled_ = Session::OfSample();
}

Session& SessionChoice::Get() {
    if (!settled_) settled_ = Session::InUse();
    if (settled_) return *settled_;
    if (!sample_) sample_ = Session::OfSample();
    return *sample_;
}

}  // namespace localstores
