// ReserveOne: room in a vector before anything is changed that the next push_back completes.
#pragma once

#include <algorithm>
#include <vector>

namespace automation {

/// Makes room for one more element, growing as push_back does: the next one then cannot fail.
template <class Element>
void ReserveOne(std::vector<Element>& vector) {
    if (vector.size() == vector.capacity()) vector.reserve(std::max<size_t>(8, vector.capacity() * 2));
}

}  // namespace automation
