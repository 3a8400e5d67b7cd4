// The sums over wavenumbers: kernels times Bessel functions, a matrix product in blocks that stay in registers. Even
// and odd nodes are summed apart: their difference is the error of the rule with half the nodes.

void Weigh(const double* raw, const double* factor, const double* size, int nodes, double* out, double& sum,
           double& peak) {
    Vec all = All(0), largest = All(0);
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Vec kernel = Load(raw + node);
        Store(out + node, kernel * Load(factor + node));
        const Vec signedSize = kernel * Load(size + node);
        const Vec magnitude = Choose(signedSize < 0.0, -signedSize, signedSize);
        all += magnitude;
        largest = Choose(largest < magnitude, magnitude, largest);
    }
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        sum += all[i];
        peak = largest[i] > peak ? largest[i] : peak;
    }
}

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

/// ROWS rows of a block of columns; two columns at a time, since each sum waits for the one before it.
template <int ROWS>
inline void InterpolateRows(const double* block, const double* weights, int columns, double* rows) {
    constexpr int Width = ROWS / ZIRVO_LANES;
    Vec sums[2][Width];
    for (int w = 0; w < Width; ++w) {
        sums[0][w] = Load(rows + w * ZIRVO_LANES) + weights[0] * Load(block + w * ZIRVO_LANES);
        sums[1][w] = columns > 1 ? weights[1] * Load(block + ROWS + w * ZIRVO_LANES) : All(0);
    }
    for (int column = 2; column < columns; column += 2) {
        for (int w = 0; w < Width; ++w) {
            const double* two = block + column * ROWS + w * ZIRVO_LANES;
            sums[0][w] += weights[column] * Load(two);
            sums[1][w] += weights[column + 1] * Load(two + ROWS);
        }
    }
    for (int w = 0; w < Width; ++w) {
        Store(rows + w * ZIRVO_LANES, sums[0][w] + sums[1][w]);
    }
}

void Interpolate(const double* block, const double* weights, int columns, int stride, double* rows) {
    if (stride == RowStride) {
        InterpolateRows<RowStride>(block, weights, columns, rows);
    } else {
        InterpolateRows<VerticalStride>(block, weights, columns, rows);
    }
}
