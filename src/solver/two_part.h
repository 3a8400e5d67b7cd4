// Numbers of about 32 digits in two doubles, for the few sums in which loads cancel (joint_sum). The kernels have
// vectors of their own (pairs.inl). Compile what includes this with -ffp-contract=off: a product contracted into a sum
// would break the exact sums. Source: Dekker (1971), Numer. Math. 18; Knuth, The Art of Computer Programming 2, 4.2.2.
#pragma once
#include <cmath>

namespace zirvo::solver {

/// High + Low, High the whole rounded to a double.
struct TwoPart {
    double High = 0;
    double Low = 0;

    constexpr TwoPart() = default;
    constexpr TwoPart(double x) : High(x) {}  // NOLINT(google-explicit-constructor): a double is such a number
    constexpr TwoPart(double high, double low) : High(high), Low(low) {}
};

/// a + b without loss; the second for |a| >= |b|.
inline TwoPart ExactSum(double a, double b) {
    const double s = a + b;
    const double part = s - a;
    return {s, (a - (s - part)) + (b - part)};
}
inline TwoPart QuickSum(double a, double b) {
    const double s = a + b;
    return {s, b - (s - a)};
}

/// a * b without loss, for sizes below 1E300.
inline TwoPart ExactProduct(double a, double b) {
    constexpr double Split = 134217729.0;  // 2^27 + 1
    const double product = a * b;
    const double aBig = a * Split, bBig = b * Split;
    const double aHigh = aBig - (aBig - a), bHigh = bBig - (bBig - b);
    const double aLow = a - aHigh, bLow = b - bHigh;
    return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

inline TwoPart operator-(TwoPart a) {
    return {-a.High, -a.Low};
}
inline TwoPart operator+(TwoPart a, TwoPart b) {
    const TwoPart high = ExactSum(a.High, b.High);
    const TwoPart low = ExactSum(a.Low, b.Low);
    const TwoPart sum = QuickSum(high.High, high.Low + low.High);
    return QuickSum(sum.High, sum.Low + low.Low);
}
inline TwoPart operator-(TwoPart a, TwoPart b) {
    return a + -b;
}
inline TwoPart operator*(TwoPart a, TwoPart b) {
    const TwoPart p = ExactProduct(a.High, b.High);
    return QuickSum(p.High, p.Low + (a.High * b.Low + a.Low * b.High));
}
inline TwoPart operator/(TwoPart a, TwoPart b) {
    const double first = a.High / b.High;
    TwoPart rest = a - b * TwoPart(first);
    const double second = rest.High / b.High;
    rest = rest - b * TwoPart(second);
    return QuickSum(first, second) + TwoPart(rest.High / b.High);
}
inline TwoPart& operator+=(TwoPart& a, TwoPart b) {
    return a = a + b;
}
inline TwoPart& operator-=(TwoPart& a, TwoPart b) {
    return a = a - b;
}

inline constexpr TwoPart TwoPartPi{3.141592653589793116e+00, 1.224646799147353207e-16};

/// 0 where a <= 0.
TwoPart SquareRoot(TwoPart a);

/// sin x and cos x, |x| up to 1E9.
void SineCosine(TwoPart x, TwoPart& sine, TwoPart& cosine);

/// Cosine and sine of degrees, of multiples of a right angle exactly.
void Direction(double degrees, TwoPart& cosine, TwoPart& sine);

/// J0 .. J3 of x >= 0, each to about 1E-30 of the largest of them.
void TwoPartBessel(TwoPart x, TwoPart out[4]);

}  // namespace zirvo::solver
