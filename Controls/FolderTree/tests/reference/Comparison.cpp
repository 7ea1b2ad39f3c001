// Comparison: runs sequences of events on two controls at once and cuts down a sequence after which they differ.
#include "reference/Comparison.h"

#include <algorithm>

namespace foldertree::reference {

std::optional<Finding> Comparison::Run(const Sequence& sequence, int64_t& events) const {
    World product(product_);
    World literal(literal_);
    for (size_t at = 0; at < sequence.size() && !product.Closed(); ++at) {
        ++events;
        product.Happen(sequence[at]);
        literal.Happen(sequence[at]);
        if (auto text = World::Difference(product, literal)) return Finding{at + 1, std::move(*text)};
        product.Forget();
        literal.Forget();
    }
    return std::nullopt;
}

std::optional<Finding> Comparison::Run(const Sequence& sequence) const {
    int64_t events = 0;
    return Run(sequence, events);
}

Sequence Comparison::Shrink(Sequence sequence, int runs) const {
    // Takes over a candidate that still makes a difference, without what comes after it.
    const auto accept = [&](Sequence candidate) {
        if (runs-- <= 0) return false;
        const auto finding = Run(candidate);
        if (!finding) return false;
        candidate.resize(finding->events);
        sequence = std::move(candidate);
        return true;
    };
    accept(sequence);

    // Whole stretches first, then ever shorter ones.
    for (size_t length = std::max<size_t>(sequence.size() / 2, 1);; length = std::max<size_t>(length / 2, 1)) {
        bool shorter = false;
        for (size_t at = 0; at < sequence.size();) {
            Sequence candidate = sequence;
            const size_t end = std::min(at + length, candidate.size());
            candidate.erase(candidate.begin() + static_cast<std::ptrdiff_t>(at),
                            candidate.begin() + static_cast<std::ptrdiff_t>(end));
            if (accept(std::move(candidate)))
                shorter = true;
            else
                at += length;
        }
        if (runs <= 0 || (length == 1 && !shorter)) break;
    }

    // Then each number towards 0, and what waits comes at once.
    const auto simplify = [&](size_t at, auto change) {
        if (at >= sequence.size()) return;
        Sequence candidate = sequence;
        change(candidate[at]);
        if (candidate != sequence) accept(std::move(candidate));
    };
    for (size_t at = 0; at < sequence.size(); ++at) {
        simplify(at, [](Event& event) {
            event.place = Place::Now;
            event.wait = 0;
        });
        for (int Event::*number : {&Event::a, &Event::b, &Event::c}) {
            simplify(at, [number](Event& event) { event.*number = 0; });
            for (int step = 0; step < 6; ++step) simplify(at, [number](Event& event) { event.*number /= 2; });
            for (int step = 0; step < 8; ++step)
                simplify(at, [number](Event& event) { event.*number -= event.*number > 0; });
        }
        for (int step = 0; step < 24; ++step) simplify(at, [](Event& event) { event.wait -= event.wait > 1; });
    }
    return sequence;
}

}  // namespace foldertree::reference
