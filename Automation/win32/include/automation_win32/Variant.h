// Variant: VARIANT to Value and back.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include "automation/Value.h"

namespace automation {

/// Every type that automation hosts send, by value or by reference; a decimal becomes a Double, an unsigned number the
/// smallest type that holds it, a one-dimensional array of bytes Bytes and of any other type an Array. The variant
/// stays the caller's. Throws Error 13 for the rest: records, arrays of more dimensions, references to nowhere.
Value FromVariant(const VARIANT& variant);

/// Fills `variant`, which holds nothing yet; the caller clears it. Throws std::bad_alloc.
void ToVariant(const Value& value, VARIANT& variant);

/// A VARIANT that clears itself.
class Variant {
  public:
    Variant() { VariantInit(&variant_); }
    explicit Variant(const Value& value) : Variant() { ToVariant(value, variant_); }
    ~Variant() { VariantClear(&variant_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    VARIANT& Raw() { return variant_; }
    /// For a call that fills it: holds nothing before.
    VARIANT* Out() {
        VariantClear(&variant_);
        return &variant_;
    }
    Value ToValue() const { return FromVariant(variant_); }

  private:
    VARIANT variant_;
};

}  // namespace automation
