// FilePropertyBag: the property bag that the demo offers to the control, kept as text.
#pragma once

#include <ocidl.h>

#include <map>
#include <string>

#include "ComObject.h"

namespace demo {

/// Reads and writes `properties`, which must outlive the bag. A value is stored as its kind and its text: "bool:True",
/// "number:2", "text:abc" or "font:..." (see FontText). Other kinds are refused.
class FilePropertyBag : public ComObject<IPropertyBag> {
  public:
    explicit FilePropertyBag(std::map<std::string, std::string>& properties) : properties_(properties) {}

    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* log) override;
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override;

  private:
    std::map<std::string, std::string>& properties_;
};

}  // namespace demo
