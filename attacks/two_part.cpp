#include "two_part.h"

#include <quadmath.h>

namespace zirvo::attack {

namespace {

constexpr Two Ln2{6.931471805599452862e-01, 2.319046813846299558e-17};

/// 1 / n!
constexpr int MostFactorials = 32;

struct Factorials {
    Two Inverse[MostFactorials];

    Factorials() {
        Inverse[0] = 1;
        for (int k = 1; k < MostFactorials; ++k) {
            Inverse[k] = Inverse[k - 1] / Two(k);
        }
    }
};

const Factorials TheFactorials;

Two OfQuad(__float128 x) {
    const auto high = static_cast<double>(x);
    return {high, static_cast<double>(x - static_cast<__float128>(high))};
}

}  // namespace

Two InverseFactorial(int n) {
    return TheFactorials.Inverse[n];
}

Two Exponential(Two x) {
    if (x.Hi < -690) {
        return {};
    }
    const double n = std::nearbyint(x.Hi / Ln2.Hi);
    const Two r = Scaled(x - Two(n) * Ln2, -6);
    // exp(r) - 1 by its series, |r| < 0.0055, then squared six times as (1 + e)^2 - 1 = e (2 + e).
    Two e = TheFactorials.Inverse[12];
    for (int k = 11; k >= 1; --k) {
        e = e * r + TheFactorials.Inverse[k];
    }
    e *= r;
    for (int i = 0; i < 6; ++i) {
        e = e * (e + Two(2));
    }
    return Scaled(e + Two(1), static_cast<int>(n));
}

void SineCosine(Two x, Two& sine, Two& cosine) {
    // pi / 2 in three parts
    constexpr double Half[3] = {1.5707963267948966e+00, 6.123233995736766e-17, -1.4973849048591833e-33};
    const double n = std::nearbyint(x.Hi / Half[0]);
    const Two r = ((x - Two(n) * Two(Half[0])) - Two(n) * Two(Half[1])) - Two(n * Half[2]);
    const Two r2 = r * r;
    Two s = TheFactorials.Inverse[29];
    Two c = TheFactorials.Inverse[28];
    for (int k = 13; k >= 0; --k) {
        s = TheFactorials.Inverse[2 * k + 1] - s * r2;
        c = TheFactorials.Inverse[2 * k] - c * r2;
    }
    s *= r;
    switch (static_cast<int>(std::fmod(n, 4))) {
        case 0:
            sine = s;
            cosine = c;
            break;
        case 1:
        case -3:
            sine = c;
            cosine = -s;
            break;
        case 2:
        case -2:
            sine = -s;
            cosine = -c;
            break;
        default:
            sine = -c;
            cosine = s;
            break;
    }
}

Two HalfErrorComplement(Two x) {
    return OfQuad(erfcq(static_cast<__float128>(x.Hi) + static_cast<__float128>(x.Lo)) / 2);
}

}  // namespace zirvo::attack
