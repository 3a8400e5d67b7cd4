// Vectors of LANES doubles for the engine loops, included inside the engine's own namespace. With g++ and clang the
// compiler's vector types, elsewhere plain arrays that an optimiser may or may not widen.
#if defined(__GNUC__) && !defined(ZIRVO_PLAIN_VECTORS)
typedef double Vec __attribute__((vector_size(ZIRVO_LANES * 8)));
typedef long long Bits __attribute__((vector_size(ZIRVO_LANES * 8)));
inline Vec All(double x) {
    return Vec{} + x;
}
inline Vec Load(const double* p) {
    Vec v;
    __builtin_memcpy(&v, p, sizeof v);
    return v;
}
inline void Store(double* p, Vec v) {
    __builtin_memcpy(p, &v, sizeof v);
}
inline Vec Sqrt(Vec x) {
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        x[i] = __builtin_sqrt(x[i]);
    }
    return x;
}
/// 2^n for the integers n that the magic number 1.5 * 2^52 was added to; |n| at most 1022.
inline Vec PowerOfTwo(Vec shifted) {
    const Bits n = (Bits)shifted - (Bits)All(6755399441055744.0);
    return (Vec)((n + 1023) << 52);
}
/// That integer in each lane.
inline Bits Integer(Vec shifted) {
    return (Bits)shifted - (Bits)All(6755399441055744.0);
}
inline Vec Choose(Bits condition, Vec yes, Vec no) {
    return condition ? yes : no;
}
inline Vec Absolute(Vec x) {
    return (Vec)((Bits)x & 0x7fffffffffffffffLL);
}
#else
struct Vec {
    double v[ZIRVO_LANES];
    double& operator[](int i) { return v[i]; }
    double operator[](int i) const { return v[i]; }
};
struct Bits {
    long long v[ZIRVO_LANES];
    long long operator[](int i) const { return v[i]; }
};
template <class F>
inline Vec EachLane(F f) {
    Vec r;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        r.v[i] = f(i);
    }
    return r;
}
template <class F>
inline Bits EachBits(F f) {
    Bits r;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        r.v[i] = f(i);
    }
    return r;
}
inline Vec All(double x) {
    return EachLane([&](int) { return x; });
}
inline Vec Load(const double* p) {
    return EachLane([&](int i) { return p[i]; });
}
inline void Store(double* p, Vec x) {
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        p[i] = x.v[i];
    }
}
inline Vec operator+(Vec a, Vec b) {
    return EachLane([&](int i) { return a.v[i] + b.v[i]; });
}
inline Vec operator-(Vec a, Vec b) {
    return EachLane([&](int i) { return a.v[i] - b.v[i]; });
}
inline Vec operator*(Vec a, Vec b) {
    return EachLane([&](int i) { return a.v[i] * b.v[i]; });
}
inline Vec operator/(Vec a, Vec b) {
    return EachLane([&](int i) { return a.v[i] / b.v[i]; });
}
inline Vec operator-(Vec a) {
    return EachLane([&](int i) { return -a.v[i]; });
}
inline Vec operator+(Vec a, double b) {
    return a + All(b);
}
inline Vec operator-(Vec a, double b) {
    return a - All(b);
}
inline Vec operator*(Vec a, double b) {
    return a * All(b);
}
inline Vec operator/(Vec a, double b) {
    return a / All(b);
}
inline Vec operator+(double a, Vec b) {
    return All(a) + b;
}
inline Vec operator-(double a, Vec b) {
    return All(a) - b;
}
inline Vec operator*(double a, Vec b) {
    return All(a) * b;
}
inline Vec operator/(double a, Vec b) {
    return All(a) / b;
}
inline Vec& operator+=(Vec& a, Vec b) {
    return a = a + b;
}
inline Vec& operator-=(Vec& a, Vec b) {
    return a = a - b;
}
inline Vec& operator*=(Vec& a, Vec b) {
    return a = a * b;
}
inline Bits operator<(Vec a, Vec b) {
    return EachBits([&](int i) { return a.v[i] < b.v[i] ? -1LL : 0LL; });
}
inline Bits operator<(Vec a, double b) {
    return a < All(b);
}
inline Bits operator&(Bits a, long long b) {
    return EachBits([&](int i) { return a.v[i] & b; });
}
inline Bits operator+(Bits a, long long b) {
    return EachBits([&](int i) { return a.v[i] + b; });
}
inline Bits operator==(Bits a, long long b) {
    return EachBits([&](int i) { return a.v[i] == b ? -1LL : 0LL; });
}
inline Bits operator!=(Bits a, long long b) {
    return EachBits([&](int i) { return a.v[i] != b ? -1LL : 0LL; });
}
inline Vec Sqrt(Vec x) {
    return EachLane([&](int i) { return std::sqrt(x.v[i]); });
}
inline long long ShiftedInteger(double shifted) {
    return static_cast<long long>(shifted - 6755399441055744.0);
}
inline Vec PowerOfTwo(Vec shifted) {
    return EachLane([&](int i) { return std::ldexp(1.0, static_cast<int>(ShiftedInteger(shifted.v[i]))); });
}
inline Bits Integer(Vec shifted) {
    return EachBits([&](int i) { return ShiftedInteger(shifted.v[i]); });
}
inline Vec Choose(Bits c, Vec yes, Vec no) {
    return EachLane([&](int i) { return c.v[i] ? yes.v[i] : no.v[i]; });
}
inline Vec Absolute(Vec x) {
    return EachLane([&](int i) { return std::fabs(x.v[i]); });
}
#endif

inline Vec Larger(Vec a, Vec b) {
    return Choose(a < b, b, a);
}
inline double SumOf(Vec x) {
    double sums[ZIRVO_LANES];
    Store(sums, x);
    for (int half = ZIRVO_LANES / 2; half > 0; half /= 2) {
        for (int i = 0; i < half; ++i) {
            sums[i] += sums[i + half];
        }
    }
    return sums[0];
}

/// What a product loses to rounding, without loss; with a fused multiplication where the processor has one, else by
/// Dekker's halves.
#if defined(__FMA__) && defined(__GNUC__) && !defined(ZIRVO_PLAIN_VECTORS)
inline Vec RestOfProduct(Vec a, Vec b, Vec product) {
    Vec rest;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        rest[i] = __builtin_fma(a[i], b[i], -product[i]);
    }
    return rest;
}
inline double RestOfProduct(double a, double b, double product) {
    return __builtin_fma(a, b, -product);
}
#else
inline Vec RestOfProduct(Vec a, Vec b, Vec product) {
    const Vec aBig = a * 134217729.0, bBig = b * 134217729.0;  // 2^27 + 1
    const Vec aHigh = aBig - (aBig - a), bHigh = bBig - (bBig - b);
    const Vec aLow = a - aHigh, bLow = b - bHigh;
    return ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow;
}
inline double RestOfProduct(double a, double b, double product) {
    const double aBig = a * 134217729.0, bBig = b * 134217729.0;
    const double aHigh = aBig - (aBig - a), bHigh = bBig - (bBig - b);
    const double aLow = a - aHigh, bLow = b - bHigh;
    return ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow;
}
#endif

constexpr double Magic = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to the nearest integer

/// exp(-x) for x >= 0, to one unit in the last place; 0 beyond 708.
inline Vec ExpMinus(Vec x) {
    const Bits gone = All(708.0) < x;
    const Vec y = -Choose(gone, All(708.0), x);
    const Vec shifted = y * 1.4426950408889634074 + Magic;
    const Vec n = shifted - Magic;
    const Vec r = (y - n * 6.93145751953125e-1) - n * 1.42860682030941723212e-6;
    // Taylor's series on |r| <= ln(2) / 2, the last term 2E-17 of the first.
    Vec p = All(1.0 / 6227020800.0);
    p = p * r + 1.0 / 479001600.0;
    p = p * r + 1.0 / 39916800.0;
    p = p * r + 1.0 / 3628800.0;
    p = p * r + 1.0 / 362880.0;
    p = p * r + 1.0 / 40320.0;
    p = p * r + 1.0 / 5040.0;
    p = p * r + 1.0 / 720.0;
    p = p * r + 1.0 / 120.0;
    p = p * r + 1.0 / 24.0;
    p = p * r + 1.0 / 6.0;
    p = p * r + 0.5;
    p = p * r + 1.0;
    p = p * r + 1.0;
    return Choose(gone, All(0.0), p * PowerOfTwo(shifted));
}
