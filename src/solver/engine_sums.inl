// The sums over wavenumbers: kernels times Bessel functions, a matrix product in blocks that stay in registers. Even
// and odd nodes are summed apart: their difference is the error of the rule with half the nodes.

/// Rows first .. last - 1 of one segment of at most PARTS vectors: weighted kernels, and the lanes of the measures.
template <int PARTS>
inline void WeighSegment(const double* raw, const double* factor, const double* size, int firstRow, int lastRow,
                         double* out, Vec sums[Kinds], Vec peaks[Kinds]) {
    Vec f[PARTS], z[PARTS];
    for (int i = 0; i < PARTS; ++i) {
        f[i] = Load(factor + i * ZIRVO_LANES);
        z[i] = Load(size + i * ZIRVO_LANES);
    }
    for (int row = firstRow; row < lastRow; ++row) {
        Vec sum = All(0), largest = All(0);
        for (int i = 0; i < PARTS; ++i) {
            const int place = row * NodeBlock + i * ZIRVO_LANES;
            const Vec kernel = Load(raw + place);
            Store(out + place, kernel * f[i]);
            const Vec magnitude = Absolute(kernel * z[i]);
            sum += magnitude;
            largest = Larger(largest, magnitude);
        }
        const int kind = RowKind[row];
        sums[kind] = Larger(sums[kind], sum);
        peaks[kind] = Larger(peaks[kind], largest);
    }
}

void MixRow(const double* from, std::ptrdiff_t stride, const double* weights, int count, int nodes, double* out) {
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        Vec sum = All(0);
        for (int i = 0; i < count; ++i) {
            sum += weights[i] * Load(from + i * stride + node);
        }
        Store(out + node, sum);
    }
}

void Weigh(const double* raw, const double* factor, const double* size, int nodes, int firstRow, int lastRow,
           double* out, const WeighMeasures& measures) {
    for (int kind = 0; kind < Kinds; ++kind) {
        measures.Tail[kind] = 0;
    }
    for (int row = firstRow; row < lastRow; ++row) {
        double& tail = measures.Tail[RowKind[row]];
        for (int k = nodes < TailNodes ? 0 : nodes - TailNodes; k < nodes; ++k) {
            const double kernel = raw[row * NodeBlock + k] * size[k];
            const double magnitude = kernel < 0 ? -kernel : kernel;
            tail = magnitude > tail ? magnitude : tail;
        }
    }
    Vec peaks[Kinds] = {All(0), All(0), All(0), All(0)};
    for (int from = 0; from < nodes; from += Segment) {
        Vec sums[Kinds] = {All(0), All(0), All(0), All(0)};
        if (from + Segment <= nodes) {
            WeighSegment<Segment / ZIRVO_LANES>(raw + from, factor + from, size + from, firstRow, lastRow, out + from,
                                                sums, peaks);
        } else {
            for (int node = from; node < nodes; node += ZIRVO_LANES) {
                Vec part[Kinds] = {All(0), All(0), All(0), All(0)};
                WeighSegment<1>(raw + node, factor + node, size + node, firstRow, lastRow, out + node, part, peaks);
                for (int kind = 0; kind < Kinds; ++kind) {
                    sums[kind] += part[kind];
                }
            }
        }
        for (int kind = RowKind[firstRow] & 2; kind < (RowKind[lastRow - 1] | 1) + 1; ++kind) {
            measures.Sums[from / Segment * measures.SegmentStride + kind] = SumOf(sums[kind]);
        }
    }
    for (int kind = 0; kind < Kinds; ++kind) {
        for (int i = 0; i < ZIRVO_LANES; ++i) {
            measures.Peak[kind] = peaks[kind][i] > measures.Peak[kind] ? peaks[kind][i] : measures.Peak[kind];
        }
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

void ChebyshevWeights(const double* nodes, const double* lambda, double x, double* weights) {
    Vec total = All(0);
    for (int k = 0; k < ChebyshevCount; k += ZIRVO_LANES) {
        const Vec difference = x - Load(nodes + k);
        const Vec weight = Load(lambda + k) / difference;
        Store(weights + k, weight);
        total += weight;
    }
    const double sum = SumOf(total);
    for (int k = 0; k < ChebyshevCount; k += ZIRVO_LANES) {
        Store(weights + k, Load(weights + k) / sum);
    }
    if (!(sum - sum == 0)) {  // x on a node
        for (int k = 0; k < ChebyshevCount; ++k) {
            weights[k] = x == nodes[k] ? 1 : 0;
        }
    }
}
