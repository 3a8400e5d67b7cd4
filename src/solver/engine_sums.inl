// The sums over wavenumbers: kernels times Bessel functions, a matrix product in blocks that stay in registers. Even
// and odd nodes are summed apart: their difference is the error of the rule with half the nodes.

/// DEPTHS rows of kernels against one tile of radii.
template <int DEPTHS>
inline void AccumulateBlock(const double* kernels, int nodes, const double* bessel, double* total, double* difference,
                            int columns) {
    constexpr int Parts = TileWidth / ZIRVO_LANES;
    for (int part = 0; part < Parts; part += 2) {
        constexpr int Width = Parts < 2 ? 1 : 2;
        Vec sums[2][DEPTHS][Width];
        for (int parity = 0; parity < 2; ++parity) {
            Vec s[DEPTHS][Width];
            for (int d = 0; d < DEPTHS; ++d) {
                for (int w = 0; w < Width; ++w) {
                    s[d][w] = All(0);
                }
            }
            for (int node = parity; node < nodes; node += 2) {
                Vec j[Width];
                for (int w = 0; w < Width; ++w) {
                    j[w] = Load(bessel + node * TileWidth + (part + w) * ZIRVO_LANES);
                }
                for (int d = 0; d < DEPTHS; ++d) {
                    const Vec k = All(kernels[d * RowCount * NodeBlock + node]);
                    for (int w = 0; w < Width; ++w) {
                        s[d][w] += k * j[w];
                    }
                }
            }
            for (int d = 0; d < DEPTHS; ++d) {
                for (int w = 0; w < Width; ++w) {
                    sums[parity][d][w] = s[d][w];
                }
            }
        }
        for (int d = 0; d < DEPTHS; ++d) {
            for (int w = 0; w < Width; ++w) {
                const int place = d * columns + (part + w) * ZIRVO_LANES;
                Store(total + place, Load(total + place) + (sums[0][d][w] + sums[1][d][w]));
                Store(difference + place, Load(difference + place) + (sums[0][d][w] - sums[1][d][w]));
            }
        }
    }
}

void Accumulate(const double* kernels, int depthCount, int nodes, const double* const bessel[4], int firstTile,
                int tiles, int firstRow, int lastRow, double* total, double* difference) {
    const int columns = tiles * TileWidth;
    for (int tile = 0; tile < tiles; ++tile) {
        for (int row = firstRow; row < lastRow; ++row) {
            const double* j = bessel[RowOrder[row]] + (firstTile + tile) * NodeBlock * TileWidth;
            const int start = row * depthCount * columns + tile * TileWidth;
            int d = 0;
            for (; d + 4 <= depthCount; d += 4) {
                AccumulateBlock<4>(kernels + (d * RowCount + row) * NodeBlock, nodes, j, total + start + d * columns,
                                   difference + start + d * columns, columns);
            }
            for (; d < depthCount; ++d) {
                AccumulateBlock<1>(kernels + (d * RowCount + row) * NodeBlock, nodes, j, total + start + d * columns,
                                   difference + start + d * columns, columns);
            }
        }
    }
}
