// Mailbox: a session for the control to read, with a wire that a test can stretch across any of its calls.
#include "com/Mailbox.h"

#include <windows.h>

#include <deque>

#include "localstores/RdoSession.h"

namespace foldertree::testing {

using automation::Enumerator;
using automation::Invocation;
using automation::Object;
using automation::ObjectRef;
using automation::Value;

namespace {

Value Wrap(const Value& value, const std::shared_ptr<Tripwire>& wire);

void Step(Tripwire& wire) {
    if (++wire.calls != wire.actAt) return;
    const auto action = wire.action;
    action();
}

class WiredWalk : public Enumerator {
  public:
    WiredWalk(std::unique_ptr<Enumerator> inner, std::shared_ptr<Tripwire> wire)
        : inner_(std::move(inner)), wire_(std::move(wire)) {}
    bool Next(Value& item) override {
        Step(*wire_);
        if (!inner_->Next(item)) return false;
        item = Wrap(item, wire_);
        return true;
    }

  private:
    std::unique_ptr<Enumerator> inner_;
    std::shared_ptr<Tripwire> wire_;
};

class WiredObject : public Object {
  public:
    WiredObject(ObjectRef inner, std::shared_ptr<Tripwire> wire) : inner_(std::move(inner)), wire_(std::move(wire)) {}

    Value Invoke(const Invocation& call) override {
        Step(*wire_);
        return Wrap(inner_->Invoke(call), wire_);
    }
    std::unique_ptr<Enumerator> NewEnum() override {
        auto walk = inner_->NewEnum();
        if (walk == nullptr) return nullptr;
        return std::make_unique<WiredWalk>(std::move(walk), wire_);
    }
    bool HasMember(std::string_view member) const override { return inner_->HasMember(member); }

  private:
    ObjectRef inner_;
    std::shared_ptr<Tripwire> wire_;
};

Value Wrap(const Value& value, const std::shared_ptr<Tripwire>& wire) {
    if (!value.IsObject() || value.ToObject() == nullptr) return value;
    return std::make_shared<WiredObject>(value.ToObject(), wire);
}

}  // namespace

ObjectRef SampleSession(std::shared_ptr<Tripwire> wire) {
    const ObjectRef session = localstores::MakeRdoSession();
    session->Get("Open", "sample");
    return std::make_shared<WiredObject>(session, std::move(wire));
}

struct Poster::Window {
    HWND handle = nullptr;
    std::deque<std::function<void()>> actions;

    static LRESULT CALLBACK Procedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
        if (message != WM_APP || self == nullptr) return DefWindowProcW(handle, message, wParam, lParam);
        const auto action = self->actions.front();
        self->actions.pop_front();
        action();
        return 0;
    }
};

Poster::Poster() : window_(std::make_unique<Window>()) {
    window_->handle = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(window_->handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(window_.get()));
    SetWindowLongPtrW(window_->handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Window::Procedure));
}

Poster::~Poster() {
    DestroyWindow(window_->handle);
}

void Poster::Post(std::function<void()> action) {
    window_->actions.push_back(std::move(action));
    PostMessageW(window_->handle, WM_APP, 0, 0);
}

}  // namespace foldertree::testing
