// J0..J3 at (xi + xiLow) * r for a block of nodes and tiles of radii; the product is kept in two parts, so that far
// points lose nothing to the rounding of large arguments.
//
// Below 32: Taylor's series round the nearest multiple of 1/2, the four orders side by side (13 terms: 0.25^13 / 13! is
// 2E-18). Beyond: Hankel's asymptotic series (Abramowitz and Stegun 9.2.5 to 9.2.10) with 8 + 8 terms, the last 1E-16
// at 32; J2 and J3 by the recurrence, which loses nothing there.

#if defined(__GNUC__) && !defined(ZIRVO_PLAIN_VECTORS)
typedef double Four __attribute__((vector_size(32)));
inline void TaylorBessel(const BesselTable& table, double x, double rest, double out[4]) {
    const int centre = static_cast<int>(2 * x + 0.5);
    const double d = (x - 0.5 * centre) + rest;
    const double(*c)[4] = table.Taylor[centre];
    Four sum;
    __builtin_memcpy(&sum, c[BesselTable::Terms - 1], sizeof sum);
    for (int k = BesselTable::Terms - 2; k >= 0; --k) {
        Four term;
        __builtin_memcpy(&term, c[k], sizeof term);
        sum = sum * d + term;
    }
    __builtin_memcpy(out, &sum, sizeof sum);
}
#else
inline void TaylorBessel(const BesselTable& table, double x, double rest, double out[4]) {
    const int centre = static_cast<int>(2 * x + 0.5);
    const double d = (x - 0.5 * centre) + rest;
    for (int n = 0; n < 4; ++n) {
        double sum = 0;
        for (int k = BesselTable::Terms - 1; k >= 0; --k) {
            sum = sum * d + table.Taylor[centre][k][n];
        }
        out[n] = sum;
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

void Bessel(const BesselTable& table, const double* xi, const double* xiLow, int nodes, const double* radii, int tiles,
            double* const out[4]) {
    for (int tile = 0; tile < tiles; ++tile) {
        const double* r = radii + tile * TileWidth;
        double smallest = r[0], largest = r[0];
        for (int i = 1; i < TileWidth; ++i) {
            smallest = r[i] < smallest ? r[i] : smallest;
            largest = r[i] > largest ? r[i] : largest;
        }
        for (int node = 0; node < nodes; ++node) {
            const int place = (tile * NodeBlock + node) * TileWidth;
            alignas(64) double rows[4][TileWidth];
            if (xi[node] * largest > BesselTable::Limit) {
                for (int i = 0; i < TileWidth; i += ZIRVO_LANES) {
                    const Vec radius = Load(r + i);
                    const Vec x = radius * xi[node];
                    const Vec rest = RestOfProduct(radius, All(xi[node]), x) + radius * xiLow[node];
                    Vec j[4];
                    AsymptoticBessel(table, Choose(x < BesselTable::Limit, All(BesselTable::Limit), x), rest, j);
                    for (int n = 0; n < 4; ++n) {
                        Store(rows[n] + i, j[n]);
                    }
                }
            }
            if (xi[node] * smallest <= BesselTable::Limit) {
                for (int i = 0; i < TileWidth; ++i) {
                    const double x = xi[node] * r[i];
                    if (x <= BesselTable::Limit) {
                        double j[4];
                        TaylorBessel(table, x, RestOfProduct(xi[node], r[i], x) + xiLow[node] * r[i], j);
                        for (int n = 0; n < 4; ++n) {
                            rows[n][i] = j[n];
                        }
                    }
                }
            }
            for (int n = 0; n < 4; ++n) {
                if (out[n] != nullptr) {
                    for (int i = 0; i < TileWidth; ++i) {
                        out[n][place + i] = rows[n][i];
                    }
                }
            }
        }
    }
}
