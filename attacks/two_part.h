// Numbers of about 32 digits in two doubles: the arithmetic of the reference. Not shared with the solver, so that an
// error there is none here. Compile with -ffp-contract=off. Source: Dekker (1971), Numer. Math. 18; Knuth, The Art of
// Computer Programming 2, 4.2.2.
#pragma once
#include <cmath>

namespace zirvo::attack {

/// Hi + Lo, with Hi the sum rounded to a double.
struct Two {
    double Hi = 0;
    double Lo = 0;

    constexpr Two() = default;
    constexpr Two(double x) : Hi(x) {}  // NOLINT(google-explicit-constructor): a double is such a number
    constexpr Two(double hi, double lo) : Hi(hi), Lo(lo) {}
};

/// a + b without loss.
inline Two ExactSum(double a, double b) {
    const double s = a + b;
    const double part = s - a;
    return {s, (a - (s - part)) + (b - part)};
}

/// The same for |a| >= |b|.
inline Two Renormalised(double a, double b) {
    const double s = a + b;
    return {s, b - (s - a)};
}

inline Two operator-(Two a) {
    return {-a.Hi, -a.Lo};
}
inline Two operator+(Two a, Two b) {
    const Two high = ExactSum(a.Hi, b.Hi);
    const Two low = ExactSum(a.Lo, b.Lo);
    const Two sum = Renormalised(high.Hi, high.Lo + low.Hi);
    return Renormalised(sum.Hi, sum.Lo + low.Lo);
}
inline Two operator-(Two a, Two b) {
    return a + -b;
}
inline Two operator*(Two a, Two b) {
    const double product = a.Hi * b.Hi;
    const double rest = std::fma(a.Hi, b.Hi, -product);
    return Renormalised(product, rest + (a.Hi * b.Lo + a.Lo * b.Hi));
}
inline Two operator/(Two a, Two b) {
    const double first = a.Hi / b.Hi;
    Two rest = a - b * Two(first);
    const double second = rest.Hi / b.Hi;
    rest = rest - b * Two(second);
    const Two sum = Renormalised(first, second);
    return sum + Two(rest.Hi / b.Hi);
}
inline Two& operator+=(Two& a, Two b) {
    return a = a + b;
}
inline Two& operator-=(Two& a, Two b) {
    return a = a - b;
}
inline Two& operator*=(Two& a, Two b) {
    return a = a * b;
}

inline double Size(Two a) {
    return std::fabs(a.Hi);
}

/// Times a power of two.
inline Two Scaled(Two a, int exponent) {
    return {std::ldexp(a.Hi, exponent), std::ldexp(a.Lo, exponent)};
}

inline Two SquareRoot(Two a) {
    if (a.Hi <= 0) {
        return {};
    }
    const double root = std::sqrt(a.Hi);
    const Two square = Two(root) * Two(root);
    return Renormalised(root, (a - square).Hi / (2 * root));
}

inline constexpr Two Pi{3.141592653589793116e+00, 1.224646799147353207e-16};

/// 1 / n!, n below 32.
Two InverseFactorial(int n);

/// exp(x).
Two Exponential(Two x);

/// sin x and cos x, |x| up to about 1E9.
void SineCosine(Two x, Two& sine, Two& cosine);

/// erfc(x) / 2 for -9 <= x <= 9.
Two HalfErrorComplement(Two x);

}  // namespace zirvo::attack
