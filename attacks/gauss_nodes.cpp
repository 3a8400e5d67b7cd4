// Newton's method on Legendre's polynomial, from the usual first guess.
#include "gauss_nodes.h"

namespace zirvo::attack {

namespace {

/// Legendre's polynomial of degree GaussCount and its derivative.
void Legendre(Two x, Two& value, Two& slope) {
    Two before = 1;
    value = x;
    for (std::size_t n = 2; n <= GaussCount; ++n) {
        const auto degree = static_cast<double>(n);
        const Two next = (Two(2 * degree - 1) * x * value - Two(degree - 1) * before) / Two(degree);
        before = value;
        value = next;
    }
    slope = Two(static_cast<double>(GaussCount)) * (x * value - before) / (x * x - Two(1));
}

}  // namespace

const GaussNodes& Gauss() {
    static const GaussNodes nodes = [] {
        GaussNodes n;
        for (std::size_t i = 0; i < GaussCount; ++i) {
            Two x = std::cos(Pi.Hi * (static_cast<double>(i) + 0.75) / (GaussCount + 0.5));
            Two value;
            Two slope;
            for (int round = 0; round < 6; ++round) {
                Legendre(x, value, slope);
                x -= value / slope;
            }
            Legendre(x, value, slope);
            n.X[i] = (x + Two(1)) * Two(0.5);
            n.Weight[i] = Two(1) / ((Two(1) - x * x) * slope * slope);
        }
        return n;
    }();
    return nodes;
}

}  // namespace zirvo::attack
