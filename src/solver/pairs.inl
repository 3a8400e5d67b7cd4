// Vectors of numbers in two parts, High + Low, about 31 digits: what the kernels are made of once more where a double
// is not enough, and where its rounding is measured. Compiled with -ffp-contract=off: a product contracted into a sum
// would break the exact sums. Source: Dekker (1971), Numer. Math. 18, with a fused multiplication where the processor
// has one.

struct TwoVec {
    Vec High, Low;
};

/// A double in two parts, for tables made by the compiler.
struct TwoDouble {
    double High, Low;
};

inline TwoVec All(TwoVec x) {
    return x;
}
inline TwoVec Exactly(double x) {
    return {All(x), All(0.0)};
}

/// a + b for |a| >= |b|, or a = 0.
inline TwoVec QuickSum(Vec a, Vec b) {
    const Vec s = a + b;
    return {s, b - (s - a)};
}
inline TwoVec ExactSum(Vec a, Vec b) {
    const Vec s = a + b;
    const Vec part = s - a;
    return {s, (a - (s - part)) + (b - part)};
}
inline TwoVec operator-(TwoVec a) {
    return {-a.High, -a.Low};
}
// Sums, products and quotients are good to a few units of the 31st digit of the larger operand, as what they are made
// of is: nothing is spent on the digits that a difference loses.
inline TwoVec operator+(TwoVec a, TwoVec b) {
    const TwoVec s = ExactSum(a.High, b.High);
    return QuickSum(s.High, s.Low + (a.Low + b.Low));
}
inline TwoVec operator-(TwoVec a, TwoVec b) {
    return a + -b;
}
inline TwoVec operator*(TwoVec a, TwoVec b) {
    const Vec p = a.High * b.High;
    return QuickSum(p, RestOfProduct(a.High, b.High, p) + (a.High * b.Low + a.Low * b.High));
}
inline TwoVec operator/(TwoVec a, TwoVec b) {
    const Vec inverse = 1.0 / b.High;
    const Vec first = a.High * inverse;
    const Vec p = first * b.High;
    const Vec rest = (((a.High - p) - RestOfProduct(first, b.High, p)) + a.Low) - first * b.Low;
    return QuickSum(first, rest * inverse);
}
inline TwoVec operator+(TwoVec a, double b) {
    const TwoVec s = ExactSum(a.High, All(b));
    return QuickSum(s.High, s.Low + a.Low);
}
inline TwoVec operator+(double a, TwoVec b) {
    return b + a;
}
inline TwoVec operator-(TwoVec a, double b) {
    return a + -b;
}
inline TwoVec operator-(double a, TwoVec b) {
    return -b + a;
}
inline TwoVec operator*(TwoVec a, double b) {
    const Vec p = a.High * b;
    return QuickSum(p, RestOfProduct(a.High, All(b), p) + a.Low * b);
}
inline TwoVec operator*(double a, TwoVec b) {
    return b * a;
}
inline TwoVec operator/(TwoVec a, double b) {
    return a / Exactly(b);
}
inline TwoVec operator/(double a, TwoVec b) {
    return Exactly(a) / b;
}
inline TwoVec& operator+=(TwoVec& a, TwoVec b) {
    return a = a + b;
}
inline TwoVec& operator-=(TwoVec& a, TwoVec b) {
    return a = a - b;
}
inline TwoVec& operator*=(TwoVec& a, TwoVec b) {
    return a = a * b;
}

constexpr TwoDouble QuickSum(double a, double b) {
    const double s = a + b;
    return {s, b - (s - a)};
}

/// a / n, for the tables.
constexpr TwoDouble Over(TwoDouble a, double n) {
    const double first = a.High / n;
    // n is a small integer and the split exact, so that each partial product is.
    const double big = first * 134217729.0;
    const double high = big - (big - first);
    const double low = first - high;
    const double rest = ((a.High - high * n) - low * n) + a.Low;
    return QuickSum(first, rest / n);
}

constexpr int MostFactorials = 40;
struct FactorialTable {
    TwoDouble Inverse[MostFactorials];  ///< 1 / n!
};
constexpr FactorialTable MakeFactorials() {
    FactorialTable table{};
    table.Inverse[0] = {1, 0};
    for (int n = 1; n < MostFactorials; ++n) {
        table.Inverse[n] = Over(table.Inverse[n - 1], n);
    }
    return table;
}
constexpr FactorialTable Factorials = MakeFactorials();

inline TwoVec InverseFactorial(int n) {
    return {All(Factorials.Inverse[n].High), All(Factorials.Inverse[n].Low)};
}

/// exp(-x) for x >= 0; 0 beyond 708.
inline TwoVec ExpMinus(TwoVec x) {
    const Bits gone = All(708.0) < x.High;
    const TwoVec y = -TwoVec{Choose(gone, All(708.0), x.High), Choose(gone, All(0.0), x.Low)};
    const Vec shifted = y.High * 1.4426950408889634074 + Magic;
    const Vec n = shifted - Magic;
    // ln 2 in three parts, the first short enough for an exact product with n.
    TwoVec r = y - TwoVec{n * 6.93145751953125e-1, All(0.0)};
    r = r - TwoVec{n, All(0.0)} * TwoVec{All(1.42860682030941723212e-6), All(-2.3407938865678233513e-23)};
    constexpr int Squares = 3;
    r = {r.High * 0.125, r.Low * 0.125};
    TwoVec e = InverseFactorial(16);
    for (int k = 15; k >= 1; --k) {
        e = e * r + InverseFactorial(k);
    }
    e = e * r;
    for (int i = 0; i < Squares; ++i) {
        e = e * (e + 2.0);  // (1 + e)^2 - 1
    }
    e = e + 1.0;
    const Vec power = PowerOfTwo(shifted);
    return {Choose(gone, All(0.0), e.High * power), Choose(gone, All(0.0), e.Low * power)};
}
