// SettingsTarget: fuzzes the settings that a container gives back, by a bag that holds anything, or nothing, or fails,
// and in a stream of any bytes. The first byte chooses.
#include <map>
#include <string>

#include "FuzzInput.h"
#include "FuzzValue.h"
#include "automation/Error.h"
#include "common/ControlContext.h"
#include "common/PersistedProperties.h"
#include "common/PropertyBag.h"
#include "common/QuietPlatform.h"
#include "common/SavedValue.h"

namespace {

using automation::ObjectRef;
using automation::Value;
using foldertree::ControlState;
using fuzz::Must;

/// Gives what the input says, and fails where it says so.
class AnyBag final : public foldertree::PropertyBag {
  public:
    explicit AnyBag(fuzz::FuzzInput& input) : input_(input) {}

    Value Read(std::string_view) override {
        FailNowAndThen();
        return fuzz::TakeValue(input_);
    }
    void Write(std::string_view, const Value&) override { FailNowAndThen(); }

  private:
    void FailNowAndThen() {
        if (input_.TakeByte() % 16 == 15) throw automation::Error(input_.Take<uint32_t>(), "The bag is torn");
    }

    fuzz::FuzzInput& input_;
};

class KeptBag final : public foldertree::PropertyBag {
  public:
    Value Read(std::string_view name) override {
        const auto found = values_.find(name);
        return found == values_.end() ? Value() : found->second;
    }
    void Write(std::string_view name, const Value& value) override {
        values_.insert_or_assign(std::string(name), value);
    }

  private:
    std::map<std::string, Value, std::less<>> values_;
};

class NoObjects final : public automation::ObjectFactory {
  public:
    ObjectRef Create(std::string_view) override {
        throw automation::Error(automation::errors::cannotCreate, "There are no objects");
    }
};

/// A control's state and grid, without the control.
struct Control {
    foldertree::QuietPlatform platform;
    NoObjects factory;
    foldertree::ControlContext context{platform, factory};
};

bool SameSettings(const ControlState& a, const ControlState& b) {
    return a.enabled == b.enabled && a.highlightContactFolders == b.highlightContactFolders &&
           a.highlightJournalFolders == b.highlightJournalFolders && a.highlightTaskFolders == b.highlightTaskFolders &&
           a.multiSelect == b.multiSelect && a.allowIndexing == b.allowIndexing &&
           a.showAddressBook == b.showAddressBook && a.extendToLevel == b.extendToLevel &&
           a.infoStoreAccessMode == b.infoStoreAccessMode;
}

/// Whatever was read is written and read again.
void CheckKept(Control& control) {
    KeptBag bag;
    foldertree::WritePersistedProperties(control.context, bag);
    Control other;
    foldertree::ReadPersistedProperties(other.context, bag);
    Must(SameSettings(control.context.state, other.context.state), "settings survive being saved and read");
    Must(control.context.grid.Font() == other.context.grid.Font(), "the font survives being saved and read");
}

/// A stream in memory; its one font is saved as a single byte.
class MemoryStream final : public foldertree::SettingsStream {
  public:
    explicit MemoryStream(std::string bytes) : bytes_(std::move(bytes)) {}

    void Read(void* bytes, size_t size) override {
        constexpr uint32_t readFault = 0x8003001E;
        if (bytes_.size() - at_ < size) throw automation::Error(readFault, "The stream ends");
        std::memcpy(bytes, bytes_.data() + at_, size);
        at_ += size;
    }
    void Write(const void* bytes, size_t size) override { bytes_.append(static_cast<const char*>(bytes), size); }
    Value ReadFont() override {
        char font = 0;
        Read(&font, sizeof font);
        if (font != 'f') throw automation::Error(automation::errors::unspecified, "This is no font");
        return font_;
    }
    void WriteFont(const Value&) override { Write("f", 1); }
    bool IsFont(const Value& value) override { return value.IsObject() && value.ToObject() == font_; }

    const std::string& Bytes() const { return bytes_; }
    size_t ReadSoFar() const { return at_; }

  private:
    std::string bytes_;
    size_t at_ = 0;
    inline static const ObjectRef font_ = fuzz::MakeStranger();
};

/// What can be read is written as it was, but for a Boolean that is neither true nor false.
void CheckStream(std::string_view bytes) {
    MemoryStream stream{std::string(bytes)};
    try {
        while (true) {
            const size_t start = stream.ReadSoFar();
            const Value value = foldertree::ReadSavedValue(stream);
            MemoryStream again{""};
            foldertree::WriteSavedValue(again, value);
            Must(value.TypeName() == "Boolean" ? again.Bytes().size() == stream.ReadSoFar() - start
                                               : bytes.substr(start, stream.ReadSoFar() - start) == again.Bytes(),
                 "a saved value is written as it was");
            const Value same = foldertree::ReadSavedValue(again);
            Must(same.Raw().index() == value.Raw().index(), "a saved value is read as it was");
        }
    } catch (const automation::Error&) {
        // Every stream ends.
    }
}

void CheckBag(fuzz::FuzzInput input) {
    AnyBag bag(input);
    Control control;
    foldertree::ReadPersistedProperties(control.context, bag);
    CheckKept(control);
    // A bag that fails while it is written leaves the settings as they are.
    const ControlState before = control.context.state;
    foldertree::WritePersistedProperties(control.context, bag);
    Must(SameSettings(before, control.context.state), "saving changes nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FuzzInput input(data, size);
    if (input.TakeByte() % 4 == 3)
        CheckStream(input.Rest());
    else
        CheckBag(input);
    return 0;
}
