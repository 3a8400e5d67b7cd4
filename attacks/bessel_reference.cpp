// Below Limit Taylor's series of J0 and J1 round multiples of 1/2, the derivatives from the orders at the centre
// (Miller's backward recurrence, scaled by J0 + 2 J2 + 2 J4 + .. = 1); beyond it Hankel's series until its terms end.
// J2 and J3 by the recurrence, by their power series near zero.
#include "bessel_reference.h"

#include <array>
#include <memory>
#include <vector>

namespace zirvo::attack {

namespace {

constexpr int Limit = 40;
constexpr int Terms = 23;
constexpr int Centres = 2 * Limit + 1;

using Row = std::array<std::array<Two, 2>, Terms>;

std::vector<Two> OrdersAt(double x) {
    const int start = static_cast<int>(x) + 90;
    std::vector<Two> j(static_cast<std::size_t>(start) + 2);
    if (x == 0) {
        j[0] = 1;
        return j;
    }
    j[static_cast<std::size_t>(start)] = 1e-250;
    for (int n = start; n > 0; --n) {
        const auto i = static_cast<std::size_t>(n);
        j[i - 1] = Two(2 * n) / Two(x) * j[i] - j[i + 1];
        if (Size(j[i - 1]) > 1e100) {
            for (Two& value : j) {
                value = Two(value.Hi * 1e-200, value.Lo * 1e-200);
            }
        }
    }
    Two sum = j[0];
    for (std::size_t n = 2; n < j.size(); n += 2) {
        sum += j[n] + j[n];
    }
    for (Two& value : j) {
        value = value / sum;
    }
    return j;
}

/// 2^-k / k! sum (-1)^i binomial(k, i) J_(order - k + 2 i).
Row CoefficientsAt(double x) {
    const std::vector<Two> j = OrdersAt(x);
    Row row;
    for (int k = 0; k < Terms; ++k) {
        for (int order = 0; order < 2; ++order) {
            Two sum;
            Two binomial = 1;
            for (int i = 0; i <= k; ++i) {
                const int n = order - k + 2 * i;
                const bool minus = (i % 2 != 0) != (n < 0 && n % 2 != 0);
                const Two term = binomial * j[static_cast<std::size_t>(n < 0 ? -n : n)];
                sum = minus ? sum - term : sum + term;
                binomial = binomial * Two(k - i) / Two(i + 1);
            }
            for (int i = 1; i <= k; ++i) {
                sum = sum / Two(2 * i);
            }
            row[static_cast<std::size_t>(k)][static_cast<std::size_t>(order)] = sum;
        }
    }
    return row;
}

const std::vector<Row>& Table() {
    static const std::vector<Row> table = [] {
        std::vector<Row> rows;
        for (int c = 0; c < Centres; ++c) {
            rows.push_back(CoefficientsAt(0.5 * c));
        }
        return rows;
    }();
    return table;
}

/// Coefficients of Hankel's series: a_k = (4 n^2 - 1) (4 n^2 - 9) .. / (k! 8^k).
constexpr int HankelTerms = 60;

struct HankelTable {
    std::array<std::array<Two, HankelTerms>, 2> A;

    HankelTable() {
        for (int order = 0; order < 2; ++order) {
            auto& row = A[static_cast<std::size_t>(order)];
            row[0] = 1;
            for (int k = 0; k + 1 < HankelTerms; ++k) {
                const double factor = 4.0 * order * order - (2.0 * k + 1) * (2.0 * k + 1);
                row[static_cast<std::size_t>(k) + 1] =
                    row[static_cast<std::size_t>(k)] * Two(factor) / Two(8.0 * (k + 1));
            }
        }
    }
};

/// P = 1 - a2 / x^2 + a4 / x^4 .., Q = a1 / x - a3 / x^3 ..
void Hankel(std::size_t order, Two inverse, Two& p, Two& q) {
    static const HankelTable table;
    const auto& a = table.A[order];
    std::size_t last = 1;
    double power = inverse.Hi;
    while (last + 1 < HankelTerms && Size(a[last]) * power > 1e-31) {
        power *= inverse.Hi;
        ++last;
    }
    last |= 1;  // odd: Q's
    const Two y = -(inverse * inverse);
    p = a[last - 1];
    q = a[last];
    while (last >= 3) {
        last -= 2;
        p = p * y + a[last - 1];
        q = q * y + a[last];
    }
    q *= inverse;
}

void Large(Two x, Two out[4]) {
    Two sine;
    Two cosine;
    SineCosine(x, sine, cosine);
    const Two inverse = Two(1) / x;
    const Two scale = SquareRoot(inverse / Pi);
    Two p;
    Two q;
    Hankel(0, inverse, p, q);
    out[0] = scale * (p * (sine + cosine) - q * (sine - cosine));
    Hankel(1, inverse, p, q);
    out[1] = scale * (p * (sine - cosine) + q * (sine + cosine));
}

}  // namespace

void BesselOrders(Two x, Two out[4]) {
    if (x.Hi < Limit) {
        const int centre = static_cast<int>(2 * x.Hi + 0.5);
        const Row& row = Table()[static_cast<std::size_t>(centre)];
        const Two d = x - Two(0.5 * centre);
        out[0] = row[Terms - 1][0];
        out[1] = row[Terms - 1][1];
        for (std::size_t k = Terms - 1; k-- > 0;) {
            out[0] = out[0] * d + row[k][0];
            out[1] = out[1] * d + row[k][1];
        }
    } else {
        Large(x, out);
    }
    if (x.Hi < 1e-2) {
        // (x / 2)^n / n! (1 - y / (n + 1) + y^2 / (2 (n + 1) (n + 2)) - ..), y = x^2 / 4
        const Two y = x * x * Two(0.25);
        for (int n = 2; n < 4; ++n) {
            Two term = n == 2 ? y * Two(0.5) : y * x / Two(12);
            Two sum;
            for (int k = 1; k < 8; ++k) {
                sum += term;
                term = -(term * y) / Two(k * (n + k));
            }
            out[n] = sum;
        }
        return;
    }
    const Two inverse = Two(2) / x;
    out[2] = inverse * out[1] - out[0];
    out[3] = Two(2) * inverse * out[2] - out[1];
}

}  // namespace zirvo::attack
