// FlagSet: a flag that is up for the length of a scope.
#pragma once

namespace foldertree {

/// Sets a flag for as long as it lives and then puts back the value that it found, so that a nested user of the flag
/// does not unlock the outer one.
class FlagSet {
  public:
    explicit FlagSet(bool& flag) : flag_(flag), found_(flag) { flag_ = true; }
    ~FlagSet() { flag_ = found_; }
    FlagSet(const FlagSet&) = delete;
    FlagSet& operator=(const FlagSet&) = delete;

  private:
    bool& flag_;
    bool found_;
};

}  // namespace foldertree
