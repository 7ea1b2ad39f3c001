// PoisonedMemory: freed memory is overwritten, so that what uses itself after its end is found; and memory can run out.
#pragma once

namespace foldertree {

/// The n-th `new` from now on fails, once; 0: none does.
void FailAllocation(int n);
/// Whether an allocation is still to fail, that is, whether fewer than n were made since.
bool AllocationFailurePending();
/// None fails any more; returns the n that arms it again as it was.
int DisarmAllocationFailure();

}  // namespace foldertree
