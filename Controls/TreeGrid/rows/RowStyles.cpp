// RowStyles: interned row looks and the changes between them.
#include "rows/RowStyles.h"

namespace foldertree {

namespace {

uint64_t Mix(uint64_t state, uint64_t value) {
    state = (state ^ value) * 0x9E3779B97F4A7C15;
    return state ^ (state >> 32);
}

uint64_t ColorBits(const std::optional<OleColor>& color) {
    return color ? uint64_t{*color} << 1 | 1 : 0;
}

void Apply(CellLook& look, const StyleChange& change) {
    switch (static_cast<CellSetting>(change.setting)) {
        case CellSetting::Picture:
            look.picture = static_cast<PictureNumber>(change.value);
            break;
        case CellSetting::PictureAlignment:
            look.pictureAlignment = static_cast<uint8_t>(change.value);
            break;
        case CellSetting::BackColor:
            look.backColor = change.value;
            break;
        case CellSetting::ForeColor:
            look.foreColor = change.value;
            break;
        case CellSetting::Bold:
            look.bold = change.value != 0;
            break;
    }
}

void Apply(RowStyle& style, const StyleChange& change) {
    if (change.setting == StyleChange::rowHeight) {
        style.height = static_cast<int32_t>(change.value);
        return;
    }
    for (int col = change.col1; col <= change.col2; ++col) Apply(style.cells[static_cast<size_t>(col)], change);
}

}  // namespace

uint64_t RowStyle::Hash(const RowStyle& style) {
    uint64_t hash = static_cast<uint32_t>(style.height);
    for (const CellLook& look : style.cells) {
        hash = Mix(hash, ColorBits(look.backColor));
        hash = Mix(hash, ColorBits(look.foreColor));
        hash = Mix(hash, uint64_t{look.pictureAlignment} << 16 | uint64_t{look.picture} << 8 | look.bold);
    }
    return hash;
}

size_t RowStyles::PlaceOf(Id from, const StyleChange& change) {
    const auto where = static_cast<uint64_t>(change.setting + 1) << 8 | static_cast<uint64_t>(change.col1 << 4) |
                       static_cast<uint64_t>(change.col2);
    return Mix(Mix(from, where), change.value) % 512;
}

RowStyles::Id RowStyles::Changed(Id from, const StyleChange& change) {
    if (stepsSweep_ != styles_.Sweeps()) {
        steps_.fill({});
        stepsSweep_ = styles_.Sweeps();
    }
    Step& step = steps_[PlaceOf(from, change)];
    Id to = step.to;
    if (step.from == from && step.change == change) {
        styles_.AddReference(to);
    } else {
        RowStyle style = styles_[from];
        Apply(style, change);
        to = styles_.Acquire(style);
        step = {from, to, change};
    }
    return to;
}

}  // namespace foldertree
