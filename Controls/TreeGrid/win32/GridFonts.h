// GridFonts: the plain and the bold face of the grid's font object.
#pragma once

#include <windows.h>

#include "automation/Object.h"

namespace foldertree {

/// The height of a font's lines, in pixels.
int LineHeightOf(HFONT font);

/// Owns the two GDI fonts.
class GridFonts {
  public:
    GridFonts() = default;
    ~GridFonts();
    GridFonts(const GridFonts&) = delete;
    GridFonts& operator=(const GridFonts&) = delete;

    /// Reads the font object's members (Name, Size in points, Weight, Bold, Italic, Underline, Strikethrough, Charset);
    /// what it lacks or fails to tell is Tahoma, 8 points, plain.
    void Load(const automation::ObjectRef& font, int dpi);

    HFONT Plain() const { return plain_; }
    HFONT Bold() const { return bold_; }
    int LineHeight() const { return lineHeight_; }  ///< pixels

  private:
    void Release();

    HFONT plain_ = nullptr;
    HFONT bold_ = nullptr;
    int lineHeight_ = 0;
};

}  // namespace foldertree
