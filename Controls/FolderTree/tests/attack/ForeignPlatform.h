// ForeignPlatform: the fake platform, with a border around it and around the fonts that it hands out.
#pragma once

#include "attack/Border.h"
#include "attack/ForeignObject.h"
#include "support/FakePlatform.h"

namespace foldertree::attack {

class ForeignPlatform : public testing::FakePlatform {
  public:
    explicit ForeignPlatform(BorderRef border) : border_(std::move(border)) {
        onYield = [this](int) { border_->Reach(Place::Yield, ""); };
        onChanged = [this] { border_->Reach(Place::Changed, ""); };
        onPropertyChanged = [this] { border_->Reach(Place::PropertyChanged, ""); };
    }

    void Yield() override {
        const Abroad abroad(border_);
        FakePlatform::Yield();
    }
    void SetBusyPointer(bool busy) override {
        const Abroad abroad(border_);
        FakePlatform::SetBusyPointer(busy);
    }
    void ShowWaitPanel(bool visible) override {
        const Abroad abroad(border_);
        FakePlatform::ShowWaitPanel(visible);
    }
    void SetWaitCaptions(std::string_view pleaseWaitText, std::string_view cancelText) override {
        const Abroad abroad(border_);
        FakePlatform::SetWaitCaptions(pleaseWaitText, cancelText);
    }
    void SetProgressText(std::string_view path) override {
        const Abroad abroad(border_);
        FakePlatform::SetProgressText(path);
    }
    void SetProgress(double maximum, double value) override {
        const Abroad abroad(border_);
        FakePlatform::SetProgress(maximum, value);
    }
    automation::ObjectRef CreateFont(std::string_view name) override {
        const Abroad abroad(border_);
        const automation::ObjectRef font = FakePlatform::CreateFont(name);
        border_->Reach(Place::FontCreation, name);
        return MakeForeign(font, fontPlaces, border_);
    }
    automation::ObjectRef AmbientFont() override {
        const Abroad abroad(border_);
        const automation::ObjectRef font = FakePlatform::AmbientFont();
        border_->Reach(Place::AmbientFont, "");
        return font;
    }
    int TwipsPerPixel() override {
        const Abroad abroad(border_);
        return FakePlatform::TwipsPerPixel();
    }
    void RaiseChanged() override {
        const Abroad abroad(border_);
        FakePlatform::RaiseChanged();
    }
    void PropertyChanged(std::string_view name) override {
        const Abroad abroad(border_);
        FakePlatform::PropertyChanged(name);
    }
    void TraceLine(std::string_view line) override {
        const Abroad abroad(border_);
        FakePlatform::TraceLine(line);
    }

  private:
    BorderRef border_;
};

}  // namespace foldertree::attack
