// Special functions in two parts. Bessel functions: below Limit by Miller's backward recurrence, scaled by J0 + 2 J2 +
// 2 J4 + .. = 1 (Abramowitz and Stegun 9.12 and 9.1.46), beyond it by Hankel's asymptotic series (9.2.5 to 9.2.10),
// whose smallest term there is exp(-2 x).
#include "solver/two_part.h"

#include <array>
#include <cmath>

namespace zirvo::solver {

namespace {

constexpr double Limit = 48;

constexpr std::size_t Factorials = 32;

/// 1 / n!
const std::array<TwoPart, Factorials>& InverseFactorials() {
    static const auto table = [] {
        std::array<TwoPart, Factorials> inverse;
        inverse[0] = 1;
        for (std::size_t n = 1; n < Factorials; ++n) {
            inverse[n] = inverse[n - 1] / TwoPart(static_cast<double>(n));
        }
        return inverse;
    }();
    return table;
}

/// Order from which on J is below 1E-33 at x <= Limit.
int MillerStart(double x) {
    return 2 * static_cast<int>(0.5 * (28 + 4 * std::sqrt(x) + 1.6 * x));
}

void SmallBessel(TwoPart x, TwoPart out[4]) {
    if (x.High < 1e-100) {
        out[0] = 1;
        out[1] = x * TwoPart(0.5);
        out[2] = out[3] = 0;
        return;
    }
    const TwoPart twice = TwoPart(2) / x;
    constexpr double Large = 1e130;
    TwoPart above;
    TwoPart at = 1e-150;
    TwoPart sum;
    for (int n = MillerStart(x.High); n > 0; --n) {
        // J(n - 1) = 2 n / x J(n) - J(n + 1)
        const TwoPart below = twice * TwoPart(n) * at - above;
        if (n <= 3) {
            out[n] = at;
        }
        if (n % 2 == 0) {
            sum += at;
        }
        above = at;
        at = below;
        if (std::fabs(at.High) > Large) {
            constexpr double Less = 0x1p-830;
            for (TwoPart* value : {&above, &at, &sum, &out[1], &out[2], &out[3]}) {
                *value = {value->High * Less, value->Low * Less};
            }
        }
    }
    out[0] = at;
    const TwoPart scale = TwoPart(1) / (at + sum + sum);
    for (int n = 0; n < 4; ++n) {
        out[n] = out[n] * scale;
    }
}

constexpr std::size_t HankelTerms = 64;
using HankelRow = std::array<TwoPart, HankelTerms>;

/// (4 n^2 - 1) (4 n^2 - 9) .. (4 n^2 - (2 k - 1)^2) / (k! 8^k).
const HankelRow& HankelRowOf(std::size_t order) {
    static const auto rows = [] {
        std::array<HankelRow, 2> table;
        for (std::size_t n = 0; n < 2; ++n) {
            table[n][0] = 1;
            for (std::size_t k = 1; k < HankelTerms; ++k) {
                const double odd = 2.0 * static_cast<double>(k) - 1;
                const double factor = 4.0 * static_cast<double>(n * n) - odd * odd;
                table[n][k] = table[n][k - 1] * TwoPart(factor) / TwoPart(8.0 * static_cast<double>(k));
            }
        }
        return table;
    }();
    return rows[order];
}

/// P = 1 - a2 / x^2 + a4 / x^4 .., Q = a1 / x - a3 / x^3 ..
void Hankel(const HankelRow& a, TwoPart inverse, TwoPart& p, TwoPart& q) {
    std::size_t last = 1;
    for (double power = inverse.High; last + 2 < HankelTerms && std::fabs(a[last].High) * power > 1e-33; ++last) {
        power *= inverse.High;
    }
    last |= 1;
    const TwoPart y = -(inverse * inverse);
    p = a[last - 1];
    q = a[last];
    for (; last >= 3; last -= 2) {
        p = p * y + a[last - 3];
        q = q * y + a[last - 2];
    }
    q = q * inverse;
}

void LargeBessel(TwoPart x, TwoPart out[4]) {
    TwoPart sine;
    TwoPart cosine;
    SineCosine(x, sine, cosine);
    const TwoPart inverse = TwoPart(1) / x;
    const TwoPart scale = SquareRoot(inverse / TwoPartPi);
    const TwoPart sum = sine + cosine;
    const TwoPart difference = sine - cosine;
    TwoPart p;
    TwoPart q;
    Hankel(HankelRowOf(0), inverse, p, q);
    out[0] = scale * (p * sum - q * difference);
    Hankel(HankelRowOf(1), inverse, p, q);
    out[1] = scale * (p * difference + q * sum);
    out[2] = TwoPart(2) * inverse * out[1] - out[0];
    out[3] = TwoPart(4) * inverse * out[2] - out[1];
}

}  // namespace

TwoPart SquareRoot(TwoPart a) {
    if (a.High <= 0) {
        return {};
    }
    const double root = std::sqrt(a.High);
    return QuickSum(root, (a - ExactProduct(root, root)).High / (2 * root));
}

void SineCosine(TwoPart x, TwoPart& sine, TwoPart& cosine) {
    const double quarters = std::nearbyint(x.High * 0.63661977236758134308);
    const TwoPart half = {0.5 * TwoPartPi.High, 0.5 * TwoPartPi.Low};
    const TwoPart r = x - half * TwoPart(quarters);
    const TwoPart y = -(r * r);
    const auto& inverse = InverseFactorials();
    TwoPart c = inverse[Factorials - 2];
    TwoPart s = inverse[Factorials - 1];
    for (std::size_t n = Factorials - 2; n >= 2; n -= 2) {
        c = c * y + inverse[n - 2];
        s = s * y + inverse[n - 1];
    }
    s = s * r;
    switch (static_cast<int>(std::fmod(quarters, 4) + 4) % 4) {
        case 0:
            sine = s;
            cosine = c;
            break;
        case 1:
            sine = c;
            cosine = -s;
            break;
        case 2:
            sine = -s;
            cosine = -c;
            break;
        default:
            sine = -c;
            cosine = s;
            break;
    }
}

void Direction(double degrees, TwoPart& cosine, TwoPart& sine) {
    const double turn = std::remainder(degrees, 360.0);
    const double quarter = std::nearbyint(turn / 90);
    SineCosine(TwoPart(turn - 90 * quarter) * TwoPartPi / TwoPart(180), sine, cosine);
    for (int i = (static_cast<int>(quarter) + 4) % 4; i > 0; --i) {
        const TwoPart before = cosine;
        cosine = -sine;
        sine = before;
    }
}

void TwoPartBessel(TwoPart x, TwoPart out[4]) {
    if (x.High < Limit) {
        SmallBessel(x, out);
    } else {
        LargeBessel(x, out);
    }
}

}  // namespace zirvo::solver
