// ComError: HRESULT and EXCEPINFO to Error and back, and the boundary that no exception passes.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <new>
#include <string>

#include "automation/Error.h"

namespace automation {

/// The error that a failed call tells: number = the EXCEPINFO's scode, or its wCode as 0x800A…, else the HRESULT; text
/// = the EXCEPINFO's description, else the system's text for the number. Frees the EXCEPINFO's texts.
Error FromExcepInfo(HRESULT result, EXCEPINFO& info);
Error FromHresult(HRESULT result);

/// Throws the HRESULT as an Error when it is a failure.
void Check(HRESULT result);

/// The HRESULT by which hosts know the number: Visual Basic's small numbers are 0x800A0000 + n.
HRESULT ToHresult(uint32_t number);

/// What an automation call returns for the error. With `info` the number and the text go there and the result is
/// DISP_E_EXCEPTION, but for the errors of the call itself (unknown name, wrong number of arguments …).
HRESULT ToExcepInfo(const Error& error, EXCEPINFO* info) noexcept;

/// Runs `action`, which returns an HRESULT, and turns what it throws into one. The only way out of a COM entry point.
template <class Action>
HRESULT ComBoundary(EXCEPINFO* info, Action&& action) noexcept {
    try {
        return action();
    } catch (const Error& error) {
        return ToExcepInfo(error, info);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

template <class Action>
HRESULT ComBoundary(Action&& action) noexcept {
    return ComBoundary(nullptr, static_cast<Action&&>(action));
}

}  // namespace automation
