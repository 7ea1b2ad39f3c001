// ControlPropertyCategories: ICategorizeProperties of the control: its properties by group in a designer's list.
#pragma once

#include <oaidl.h>

#include "win32/com/ComPart.h"

namespace foldertree {

class ControlObject;

/// ICategorizeProperties, as designers know it; MinGW does not declare it. Categories are numbers: those below 0 have
/// names in every designer.
struct CategorizeProperties : public IUnknown {
    virtual HRESULT STDMETHODCALLTYPE MapPropertyToCategory(DISPID property, int* category) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCategoryName(int category, LCID locale, BSTR* name) = 0;

  protected:
    ~CategorizeProperties() = default;
};

inline constexpr int fontCategory = -3;
inline constexpr int appearanceCategory = -5;
inline constexpr int behaviorCategory = -6;
inline constexpr int dataCategory = -7;

class ControlPropertyCategories final : public ComPart<CategorizeProperties> {
  public:
    explicit ControlPropertyCategories(ControlObject& object);

    /// E_FAIL for a number that is no property of the control's.
    STDMETHOD(MapPropertyToCategory)(DISPID property, int* category) override;
    /// S_FALSE: the control has no category of its own.
    STDMETHOD(GetCategoryName)(int category, LCID locale, BSTR* name) override;
};

}  // namespace foldertree

__CRT_UUID_DECL(foldertree::CategorizeProperties, 0x4d07fc10, 0xf931, 0x11ce, 0xb0, 0x01, 0x00, 0xaa, 0x00, 0x68, 0x84,
                0xe5)
