// ComPtr: the counted reference to a COM object.
#pragma once

#include <windows.h>

#include <wrl/client.h>

namespace automation {

template <class T>
using ComPtr = Microsoft::WRL::ComPtr<T>;

}  // namespace automation
