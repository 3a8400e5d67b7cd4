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

/// erfc(u) / 2. For x >= 0, exp(x^2) erfc(x) is t times a smooth function of t = 1 / (1 + x / 2): its Chebyshev
/// expansion on 0 <= x <= 7.5, whose last term is 1E-17, as a polynomial. What x^2 loses is 50 units of a tail of
/// 1E-22.
inline Vec HalfErrorComplement(Vec u) {
    constexpr double Furthest = 7.5, Least = 1 / (1 + 0.5 * Furthest);
    constexpr int Terms = 22;
    constexpr double Coefficients[Terms] = {
        0.5894650349406603,      0.3192711495341749,     0.09232482797538383,    0.003954969387332811,
        -0.005068148084854189,   -0.0003277630447520948, 0.00042691571892812774, -1.906824267558966e-05,
        -3.816191103084545e-05,  9.680934858217498e-06,  1.8587862727533603e-06, -1.6132059873178805e-06,
        2.6160220860915706e-07,  1.1492009316849459e-07, -7.409225453148272e-08, 1.2451697202952897e-08,
        5.522125810364058e-09,   -4.092857179861306e-09, 7.193833482044617e-10,  3.242515437004312e-10,
        -1.5249102650709523e-10, 9.532199567269641e-12};
    const Vec x = Absolute(u);
    const Vec t = 1.0 / (1.0 + 0.5 * Choose(x < Furthest, x, All(Furthest)));
    const Vec y = t * (2 / (1 - Least)) - (1 + Least) / (1 - Least);
    Vec sum = All(Coefficients[Terms - 1]);
    for (int k = Terms - 2; k >= 0; --k) {
        sum = sum * y + Coefficients[k];
    }
    const Vec half = 0.5 * t * sum * ExpMinus(x * x);
    return Choose(u < 0.0, 1.0 - half, half);
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
    Vec all = slope * (map.Step * map.C);
    const Vec u = (product - map.WindowCentre) * map.InverseWidth;
    if (map.InverseWidth > 0 && u[ZIRVO_LANES - 1] > -6) {  // before, the window is one
        all *= HalfErrorComplement(u);
    }
    Store(weight, all);
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
