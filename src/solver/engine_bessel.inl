// J0..J3 at (xi + xiLow) * r for a block of nodes and tiles of radii; the product is kept in two parts, so that far
// points lose nothing to the rounding of large arguments.
//
// Below 32: Taylor's series round the nearest multiple of 1/4, the four orders side by side (11 terms: 0.125^11 / 11!
// is 3E-18). Beyond: Hankel's asymptotic series (Abramowitz and Stegun 9.2.5 to 9.2.10) with 8 + 8 terms, the last
// 1E-16 at 32; J2 and J3 by the recurrence, which loses nothing there.

#if defined(__GNUC__) && !defined(ZIRVO_PLAIN_VECTORS)
typedef double Four __attribute__((vector_size(32)));
typedef long long FourBits __attribute__((vector_size(32)));
inline Four FourAt(const double* p) {
    Four v;
    __builtin_memcpy(&v, p, sizeof v);
    return v;
}

/// The four orders at a distance d from a centre.
inline Four TaylorBessel(const BesselTable& table, long long centre, double d) {
    const double(*c)[4] = table.Taylor[centre];
    Four sum = FourAt(c[BesselTable::Terms - 1]);
    for (int k = BesselTable::Terms - 2; k >= 0; --k) {
        sum = sum * d + FourAt(c[k]);
    }
    return sum;
}

/// J0..J3 at x + rest, one after the other in each order; all arguments at most Limit.
inline void TaylorOfFour(const BesselTable& table, Four x, Four rest, double* const out[4]) {
    const Four shifted = x * double{BesselTable::PerUnit} + Magic;
    const FourBits centre = (FourBits)shifted - (FourBits)(Four{} + Magic);
    const Four from = (x - (shifted - Magic) * (1.0 / BesselTable::PerUnit)) + rest;
    const Four a = TaylorBessel(table, centre[0], from[0]), b = TaylorBessel(table, centre[1], from[1]);
    const Four c = TaylorBessel(table, centre[2], from[2]), d = TaylorBessel(table, centre[3], from[3]);
    const Four ab01 = __builtin_shufflevector(a, b, 0, 4, 1, 5), ab23 = __builtin_shufflevector(a, b, 2, 6, 3, 7);
    const Four cd01 = __builtin_shufflevector(c, d, 0, 4, 1, 5), cd23 = __builtin_shufflevector(c, d, 2, 6, 3, 7);
    const Four rows[4] = {
        __builtin_shufflevector(ab01, cd01, 0, 1, 4, 5), __builtin_shufflevector(ab01, cd01, 2, 3, 6, 7),
        __builtin_shufflevector(ab23, cd23, 0, 1, 4, 5), __builtin_shufflevector(ab23, cd23, 2, 3, 6, 7)};
    for (int n = 0; n < 4; ++n) {
        if (out[n] != nullptr) {
            __builtin_memcpy(out[n], &rows[n], sizeof rows[n]);
        }
    }
}

/// J0..J3 at (xi + xiLow) r of four radii.
inline void SmallOfFour(const BesselTable& table, double xi, double xiLow, const double* r, double* const out[4]) {
    const Four radius = FourAt(r);
    const Four x = radius * xi;
    Four rest;
    for (int k = 0; k < 4; ++k) {
        rest[k] = RestOfProduct(radius[k], xi, x[k]);
    }
    TaylorOfFour(table, x, rest + radius * xiLow, out);
}

/// The same of four nodes and one radius.
inline void SmallOfNodes(const BesselTable& table, const double* xi, const double* xiLow, double r,
                         double* const out[4]) {
    const Four node = FourAt(xi);
    const Four x = node * r;
    Four rest;
    for (int k = 0; k < 4; ++k) {
        rest[k] = RestOfProduct(node[k], r, x[k]);
    }
    TaylorOfFour(table, x, rest + FourAt(xiLow) * r, out);
}
#else
inline void TaylorOfOne(const BesselTable& table, double x, double rest, int place, double* const out[4]) {
    const int centre = static_cast<int>(BesselTable::PerUnit * x + 0.5);
    const double d = (x - (1.0 / BesselTable::PerUnit) * centre) + rest;
    for (int n = 0; n < 4; ++n) {
        double sum = 0;
        for (int k = BesselTable::Terms - 1; k >= 0; --k) {
            sum = sum * d + table.Taylor[centre][k][n];
        }
        if (out[n] != nullptr) {
            out[n][place] = sum;
        }
    }
}
inline void SmallOfFour(const BesselTable& table, double xi, double xiLow, const double* r, double* const out[4]) {
    for (int i = 0; i < 4; ++i) {
        const double x = xi * r[i];
        TaylorOfOne(table, x, RestOfProduct(xi, r[i], x) + xiLow * r[i], i, out);
    }
}
inline void SmallOfNodes(const BesselTable& table, const double* xi, const double* xiLow, double r,
                         double* const out[4]) {
    for (int i = 0; i < 4; ++i) {
        const double x = xi[i] * r;
        TaylorOfOne(table, x, RestOfProduct(xi[i], r, x) + xiLow[i] * r, i, out);
    }
}
#endif

/// sin and cos of x + rest, x >= 0 up to about 1E6, by reduction with pi / 2 in three parts of 33 bits.
inline void SinCos(Vec x, Vec rest, Vec& sine, Vec& cosine) {
    const Vec shifted = x * 0.63661977236758134308 + Magic;
    const Vec n = shifted - Magic;
    const Vec r =
        ((x - n * 1.57079632673412561417) - n * 6.07710050630396597660e-11) - (n * 2.02226624879595063154e-21 - rest);
    const Vec r2 = r * r;
    Vec s = All(1.0 / 355687428096000.0);
    s = s * r2 - 1.0 / 1307674368000.0;
    s = s * r2 + 1.0 / 6227020800.0;
    s = s * r2 - 1.0 / 39916800.0;
    s = s * r2 + 1.0 / 362880.0;
    s = s * r2 - 1.0 / 5040.0;
    s = s * r2 + 1.0 / 120.0;
    s = s * r2 - 1.0 / 6.0;
    s = r + r * (r2 * s);
    Vec c = All(1.0 / 20922789888000.0);
    c = c * r2 - 1.0 / 87178291200.0;
    c = c * r2 + 1.0 / 479001600.0;
    c = c * r2 - 1.0 / 3628800.0;
    c = c * r2 + 1.0 / 40320.0;
    c = c * r2 - 1.0 / 720.0;
    c = c * r2 + 1.0 / 24.0;
    c = c * r2 - 0.5;
    c = c * r2 + 1.0;
    const Bits quadrant = Integer(shifted);
    const Bits swap = (quadrant & 1) != 0;
    const Bits sineMinus = (quadrant & 2) != 0;
    const Bits cosineMinus = ((quadrant + 1) & 2) != 0;
    const Vec a = Choose(swap, c, s), b = Choose(swap, s, c);
    sine = Choose(sineMinus, -a, a);
    cosine = Choose(cosineMinus, -b, b);
}

inline Vec Series(const double* terms, Vec y) {
    Vec sum = All(terms[BesselTable::AsymptoticTerms - 1]);
    for (int k = BesselTable::AsymptoticTerms - 2; k >= 0; --k) {
        sum = sum * y + terms[k];
    }
    return sum;
}

/// x >= 32 in every lane.
inline void AsymptoticBessel(const BesselTable& table, Vec x, Vec rest, Vec out[4]) {
    const Vec inverse = 1.0 / x;
    const Vec y = inverse * inverse;
    Vec s, c;
    SinCos(x, rest, s, c);
    const Vec scale = Sqrt(inverse * 0.31830988618379067154);
    const Vec sum = s + c, difference = s - c;
    out[0] = scale * (Series(table.P0, y) * sum - Series(table.Q0, y) * inverse * difference);
    out[1] = scale * (Series(table.P1, y) * difference + Series(table.Q1, y) * inverse * sum);
    out[2] = 2.0 * inverse * out[1] - out[0];
    out[3] = 4.0 * inverse * out[2] - out[1];
}

constexpr double TinyArgument = 0.125;

/// J0..J3 of arguments up to TinyArgument: Taylor's series round 0.
inline void TinyBessel(const BesselTable& table, Vec x, Vec out[4]) {
    const Vec y = x * x;
    const double(*c)[4] = table.Taylor[0];
    for (int n = 0; n < 4; ++n) {
        const int first = n % 2;
        Vec sum = All(c[first + 8][n]);
        for (int k = first + 6; k >= first; k -= 2) {
            sum = sum * y + c[k][n];
        }
        out[n] = first == 1 ? sum * x : sum;
    }
}

/// One node for one tile, all arguments at most Limit; `lanes` of the radii differ, the others are like the last.
inline void SmallBessel(const BesselTable& table, double xi, double xiLow, const double* r, int lanes,
                        double* const out[4]) {
    for (int i = 0; i < TileWidth; i += 4) {
        if (i >= lanes) {
            for (int n = 0; n < 4; ++n) {
                if (out[n] != nullptr) {
                    for (int k = 0; k < 4; ++k) {
                        out[n][i + k] = out[n][i - 1];
                    }
                }
            }
            continue;
        }
        double* const to[4] = {out[0] ? out[0] + i : nullptr, out[1] ? out[1] + i : nullptr,
                               out[2] ? out[2] + i : nullptr, out[3] ? out[3] + i : nullptr};
        SmallOfFour(table, xi, xiLow, r + i, to);
    }
}

/// The same, all arguments beyond Limit (smaller ones give something finite).
inline void LargeBessel(const BesselTable& table, double xi, double xiLow, const double* r, double* const out[4]) {
    for (int i = 0; i < TileWidth; i += ZIRVO_LANES) {
        const Vec radius = Load(r + i);
        const Vec x = radius * xi;
        const Vec rest = RestOfProduct(radius, All(xi), x) + radius * xiLow;
        Vec j[4];
        AsymptoticBessel(table, Choose(x < BesselTable::Limit, All(BesselTable::Limit), x), rest, j);
        for (int n = 0; n < 4; ++n) {
            if (out[n] != nullptr) {
                Store(out[n] + i, j[n]);
            }
        }
    }
}

/// The same with arguments on both sides of Limit.
inline void MixedBessel(const BesselTable& table, double xi, double xiLow, const double* r, double* const out[4]) {
    alignas(64) double inside[TileWidth];
    alignas(64) double small[4][TileWidth] = {};
    for (int i = 0; i < TileWidth; i += ZIRVO_LANES) {
        const Vec radius = Load(r + i);
        Store(inside + i, Choose(All(BesselTable::Limit) < radius * xi, All(0), radius));
    }
    for (int i = 0; i < TileWidth; i += 4) {
        if (xi * r[i] <= BesselTable::Limit || xi * r[i + 1] <= BesselTable::Limit ||
            xi * r[i + 2] <= BesselTable::Limit || xi * r[i + 3] <= BesselTable::Limit) {
            double* const half[4] = {small[0] + i, small[1] + i, small[2] + i, small[3] + i};
            SmallOfFour(table, xi, xiLow, inside + i, half);
        }
    }
    for (int i = 0; i < TileWidth; i += ZIRVO_LANES) {
        const Vec radius = Load(r + i);
        const Vec x = radius * xi;
        const Vec rest = RestOfProduct(radius, All(xi), x) + radius * xiLow;
        const Bits beyond = All(BesselTable::Limit) < x;
        Vec j[4];
        AsymptoticBessel(table, Choose(beyond, x, All(BesselTable::Limit)), rest, j);
        for (int n = 0; n < 4; ++n) {
            if (out[n] != nullptr) {
                Store(out[n] + i, Choose(beyond, j[n], Load(small[n] + i)));
            }
        }
    }
}

/// The same, all arguments at most TinyArgument.
inline void TinyOfTile(const BesselTable& table, double xi, const double* r, double* const out[4]) {
    for (int i = 0; i < TileWidth; i += ZIRVO_LANES) {
        Vec j[4];
        TinyBessel(table, Load(r + i) * xi, j);
        for (int n = 0; n < 4; ++n) {
            if (out[n] != nullptr) {
                Store(out[n] + i, j[n]);
            }
        }
    }
}

void Bessel(const BesselTable& table, const double* xi, const double* xiLow, int nodes, const double* radii, int tiles,
            double* const out[4]) {
    for (int tile = 0; tile < tiles; ++tile) {
        const double* r = radii + tile * TileWidth;
        double smallest = r[0], largest = r[0];
        int lanes = TileWidth;
        for (int i = 1; i < TileWidth; ++i) {
            smallest = r[i] < smallest ? r[i] : smallest;
            largest = r[i] > largest ? r[i] : largest;
        }
        while (lanes > 1 && r[lanes - 1] == r[lanes - 2]) {
            --lanes;
        }
        for (int node = 0; node < nodes; ++node) {
            const int place = (tile * NodeBlock + node) * TileWidth;
            double* const to[4] = {out[0] ? out[0] + place : nullptr, out[1] ? out[1] + place : nullptr,
                                   out[2] ? out[2] + place : nullptr, out[3] ? out[3] + place : nullptr};
            if (xi[node] * largest <= TinyArgument) {
                TinyOfTile(table, xi[node], r, to);
            } else if (xi[node] * largest <= BesselTable::Limit) {
                SmallBessel(table, xi[node], xiLow[node], r, lanes, to);
            } else if (xi[node] * smallest > BesselTable::Limit) {
                LargeBessel(table, xi[node], xiLow[node], r, to);
            } else {
                MixedBessel(table, xi[node], xiLow[node], r, to);
            }
        }
    }
}
