// Nodes and weights of the sums over wavenumbers (wavenumbers.h) in two parts: xi = c ln(1 + exp t), t = s - low, low =
// exp(sL - s). Far from the loads arguments of Bessel functions are large, and so is what the rounding of a node would
// do to them. exp and ln(1 + e) from tables in two parts and short series: 64 parts of a power of two, and of 1 .. 2.
// low is a plain double: where it is not small, xi is less than 1E-3 c.

/// exp(y) to 5E-19 of it for -600 < y <= 0: `number` times `power`, a power of two.
inline void NodeExponential(const NodeTable& table, Vec y, TwoVec& number, Vec& power) {
    constexpr int Parts = NodeTable::Parts;
    const Vec parts = (y * 92.332482616893656807 + Magic) - Magic;  // 64 / ln 2
    const Vec whole = parts * (1.0 / Parts) + Magic;
    const Bits index = Integer((parts - (whole - Magic) * double{Parts}) + Magic);
    Vec high, low;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        high[i] = table.Power[index[i] + Parts / 2];
        low[i] = table.PowerLow[index[i] + Parts / 2];
    }
    // ln 2 / 64 in two parts, the first short enough for an exact product.
    const Vec first = y - parts * 0x1.62e42fef80000p-7, rest = parts * -2.5310172166650877e-13;
    const Vec r = first + rest;
    Vec series = r * (1.0 / 720) + 1.0 / 120;
    series = series * r + 1.0 / 24;
    series = series * r + 1.0 / 6;
    series = series * r + 0.5;
    number = QuickSum(high, low + (high * first + high * (r * r * series + rest)));
    power = PowerOfTwo(whole);
}

/// exp(x) - 1 for |x| <= SmallExponent.
constexpr double SmallExponent = 0.1;
inline Vec ExponentialLessOne(Vec x) {
    Vec series = All(1.0 / 39916800);
    series = series * x + 1.0 / 3628800;
    series = series * x + 1.0 / 362880;
    series = series * x + 1.0 / 40320;
    series = series * x + 1.0 / 5040;
    series = series * x + 1.0 / 720;
    series = series * x + 1.0 / 120;
    series = series * x + 1.0 / 24;
    series = series * x + 1.0 / 6;
    series = series * x + 0.5;
    return x + x * x * series;
}

/// ln(1 + e) for 0 <= e <= 1.01, to 1E-18 of it.
inline TwoVec LogarithmOfOnePlus(const NodeTable& table, TwoVec e) {
    const Bits part = Integer(Choose(e.High < 1.0, e.High, All(1.0)) * double{NodeTable::Parts} + Magic);
    Vec c, log, logLow;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        c[i] = table.Inverse[part[i]];
        log[i] = table.Log[part[i]];
        logLow[i] = table.LogLow[part[i]];
    }
    // c (1 + e) - 1, which is small, without loss: c has 12 digits.
    const Vec big = e.High * 134217729.0;
    const Vec half = big - (big - e.High);
    const TwoVec u = ExactSum((c - 1.0) + half * c, (e.High - half) * c);
    const Vec x = u.High;
    Vec series = x * (1.0 / 9) - 1.0 / 8;
    series = series * x + 1.0 / 7;
    series = series * x - 1.0 / 6;
    series = series * x + 1.0 / 5;
    series = series * x - 1.0 / 4;
    series = series * x + 1.0 / 3;
    series = series * x - 0.5;
    const TwoVec sum = ExactSum(log, x);
    return QuickSum(sum.High, sum.Low + ((logLow + (u.Low + e.Low * c)) + x * x * series));
}

/// One vector of nodes; @param s, map  as in wavenumbers.h
inline void OneVectorOfNodes(const NodeTable& table, const NodeMap& map, Vec s, double* xi, double* xiLow,
                             double* weight) {
    constexpr double Straight = 50;  // s from which on xi is c s and what is missing nothing of it
    TwoVec sum = {s, All(0.0)};      // xi over c
    Vec slope = All(1.0);
    if (s[0] < Straight) {
        const Bits above = All(0.0) < s;
        const Vec size = Absolute(s);
        TwoVec number;
        Vec power;
        NodeExponential(table, -Choose(size < Straight, size, Choose(above, All(Straight), size)), number, power);
        const Vec plain = number.High * power;
        const Vec low = Choose(above, plain * map.AtLowEnd, map.AtLowEnd / plain);
        const TwoVec product =
            QuickSum(number.High, number.Low + number.High * ExponentialLessOne(Choose(above, low, -low)));
        TwoVec e = {product.High * power, product.Low * power};  // exp(-|s - low|), nearly always
        if (low[0] > SmallExponent) {
            const Bits small = low < SmallExponent;
            e = {Choose(small, e.High, plain * ExpMinus(low)), Choose(small, e.Low, All(0.0))};
        }
        const TwoVec log = LogarithmOfOnePlus(table, e);
        const TwoVec t = ExactSum(s, -low);
        const TwoVec straight = ExactSum(t.High, log.High);
        const TwoVec both = QuickSum(straight.High, straight.Low + (t.Low + log.Low));
        sum = {Choose(above, both.High, log.High), Choose(above, both.Low, log.Low)};
        slope = (1.0 + low) * Choose(above, All(1.0), e.High) / (1.0 + e.High);
    }
    const Vec product = sum.High * map.C;
    const Vec rest = RestOfProduct(sum.High, All(map.C), product) + sum.Low * map.C;
    // A node below the smallest normal number still stands for a wavenumber of its own: its weight is nothing.
    Store(xi, Larger(product, All(1e-280)));
    Store(xiLow, Choose(product < 1e-250, All(0.0), rest));
    Store(weight, slope * (map.Step * map.C));
}

void Nodes(const NodeTable& table, const NodeMap& map, double first, int count, double* xi, double* xiLow,
           double* weight) {
    Vec lane;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        lane[i] = i;
    }
    for (int i = 0; i < count; i += ZIRVO_LANES) {
        const Vec s = (lane + (first + i)) * map.Step + map.Start;  // exact: few digits each
        OneVectorOfNodes(table, map, s, xi + i, xiLow + i, weight + i);
    }
}
