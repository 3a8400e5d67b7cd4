// Sums for single pairs of a load and a point, each at a depth and a distance of its own: the four functions of depth
// that the fields of layers (engine_fields.inl) are multiplied by, and the sums over nodes, Bessel functions included.
//
// A thin layer's field lies in the span of ch y, y sh y, sh y and t(y) = (y ch y - sh y) / 2, y = xi (z - middle). With
// Y = q / 2 at the bottom, the even functions that have the value 1 and no slope there, or no value and the slope 1,
// are
//   E = ((sh Y + Y ch Y) ch y - sh Y y sh y) / D, E' = (ch Y y sh y - Y sh Y ch y) / D, D = sh Y ch Y + Y,
// and the odd ones
//   O = (Y sh Y / 2 sh y - ch Y t(y)) / F, O' = (sh Y t(y) - t(Y) sh y) / F, F = Y sh^2 Y / 2 - t(Y) ch Y,
// which lose nothing as q goes to 0, where they are cubic polynomials.

void ThinFunctions(double thickness, const double* xi, int nodes, double* out) {
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Vec q = Load(xi + node) * thickness;
        if (!(q[ZIRVO_LANES - 1] <= ThinLimit)) {
            return;
        }
        const Vec y = 0.5 * q;
        const Hyperbolic f = HyperbolicOf(y);
        const Vec ys = y * f.Sinh;
        const Vec even = 1.0 / (f.Sinh * f.Cosh + y);
        const Vec odd = 1.0 / (0.5 * ys * f.Sinh - f.Third * f.Cosh);
        const Vec numbers[ThinNumbers] = {(f.Sinh + y * f.Cosh) * even,
                                          f.Sinh * even,
                                          f.Cosh * even,
                                          ys * even,
                                          0.5 * ys * odd,
                                          f.Cosh * odd,
                                          f.Sinh * odd,
                                          f.Third * odd};
        for (int i = 0; i < ThinNumbers; ++i) {
            Store(out + i * NodeBlock + node, numbers[i]);
        }
    }
}

inline void ThinDepth(const KernelDepth& depth, Vec x, const double* thin, double* out) {
    if (depth.FromTop == 0 || depth.FromBottom == 0) {
        for (int j = 0; j < 4; ++j) {
            Store(out + j * NodeBlock, All(j == (depth.FromTop == 0 ? 0 : 3) ? 1 : 0));
        }
        return;
    }
    // The tops of a hundred layers are rounded by more than a film can bear.
    const Vec y = x * (0.5 * ((depth.FromTop - depth.FromBottom) + (depth.FromTopLow - depth.FromBottomLow)));
    const Hyperbolic f = HyperbolicOf(y);
    const Vec even = y * f.Sinh;
    Vec n[ThinNumbers];
    for (int i = 0; i < ThinNumbers; ++i) {
        n[i] = Load(thin + i * NodeBlock);
    }
    const Vec value = n[0] * f.Cosh - n[1] * even, slope = n[2] * even - n[3] * f.Cosh;
    const Vec oddValue = n[4] * f.Sinh - n[5] * f.Third, oddSlope = n[6] * f.Third - n[7] * f.Sinh;
    Store(out, 0.5 * (value - oddValue));
    Store(out + NodeBlock, 0.5 * (oddSlope - slope));
    Store(out + 2 * NodeBlock, 0.5 * (oddSlope + slope));
    Store(out + 3 * NodeBlock, 0.5 * (value + oddValue));
}

void DepthFunctions(const KernelDepth& depth, bool lastLayer, const double* xi, int nodes, const unsigned char* forms,
                    const double* thin, double* out) {
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Vec x = Load(xi + node);
        if (forms[node] == FormThin) {
            ThinDepth(depth, x, thin + node, out + node);
            continue;
        }
        Vec f[4] = {All(0), All(0), All(0), All(0)};
        if (forms[node] == FormThick) {
            const Vec zeta = x * (depth.FromTop + depth.FromTopLow);
            f[0] = ExpMinus(zeta);
            f[1] = zeta * f[0];
            if (!lastLayer) {
                const Vec eta = x * (depth.FromBottom + depth.FromBottomLow);
                f[2] = ExpMinus(eta);
                f[3] = eta * f[2];
            }
        }
        for (int j = 0; j < 4; ++j) {
            Store(out + j * NodeBlock + node, f[j]);
        }
    }
}

/// J0..J3 at (xi + xiLow) r of eight ascending nodes.
inline void BesselOfEight(const BesselTable& table, const double* xi, const double* xiLow, double r, double out[4][8]) {
    double* const halves[2][4] = {{out[0], out[1], out[2], out[3]}, {out[0] + 4, out[1] + 4, out[2] + 4, out[3] + 4}};
    if (xi[7] * r <= BesselTable::Limit) {
        SmallOfNodes(table, xi, xiLow, r, halves[0]);
        SmallOfNodes(table, xi + 4, xiLow + 4, r, halves[1]);
        return;
    }
    alignas(64) double small[4][8] = {};
    int few = 0;
    while (xi[few] * r <= BesselTable::Limit) {
        ++few;
    }
    if (few > 0) {
        double inside[8];
        for (int i = 0; i < 8; ++i) {
            inside[i] = i < few ? xi[i] : 0;
        }
        double* const low[4] = {small[0], small[1], small[2], small[3]};
        double* const high[4] = {small[0] + 4, small[1] + 4, small[2] + 4, small[3] + 4};
        SmallOfNodes(table, inside, xiLow, r, low);
        SmallOfNodes(table, inside + 4, xiLow + 4, r, high);
    }
    for (int i = 0; i < 8; i += ZIRVO_LANES) {
        const Vec node = Load(xi + i);
        const Vec x = node * r;
        const Vec rest = RestOfProduct(node, All(r), x) + Load(xiLow + i) * r;
        Vec j[4];
        AsymptoticBessel(table, Choose(x < BesselTable::Limit, All(BesselTable::Limit), x), rest, j);
        for (int n = 0; n < 4; ++n) {
            Store(out[n] + i, j[n]);
        }
    }
    for (int n = 0; n < 4; ++n) {
        for (int i = 0; i < few; ++i) {
            out[n][i] = small[n][i];
        }
    }
}

/// What a component is: four coefficients times the functions of depth.
inline Vec ComponentAt(const double* fields, int component, const Vec depth[4]) {
    const double* c = fields + component * 4 * 8;
    return (Load(c) * depth[0] + Load(c + 8) * depth[1]) + (Load(c + 16) * depth[2] + Load(c + 24) * depth[3]);
}

/// Components from a layer's fields and the functions of depth.
struct FieldComponentsAt {
    const double* Fields;
    Vec Depth[4];

    Vec At(int component) const { return ComponentAt(Fields, component, Depth); }
};

/// Components mixed of those for some radii.
struct MixedComponents {
    Vec Mixed[FieldComponents];

    Vec At(int component) const { return Mixed[component]; }
};

/// One vector of nodes; j: Bessel functions times the factor.
template <bool VERTICAL, bool HORIZONTAL, class Components>
inline void AddVector(const Components& c, const Vec j[4], Vec inverseXi, Vec rows[RowCount]) {
    const Vec j0 = j[0] * inverseXi, j1 = j[1] * inverseXi, j2 = j[2] * inverseXi;
    if (VERTICAL) {
        const Vec u = c.At(2);
        rows[RowVerticalW] += c.At(0) * j0;
        rows[RowVerticalS] += c.At(1) * j[0];
        rows[RowVerticalU0] += u * j[0];
        rows[RowVerticalU1] += u * j1;
        rows[RowVerticalT] += c.At(3) * j[1];
        rows[RowVerticalU2] += u * j[2];
    }
    if (HORIZONTAL) {
        const Vec u = c.At(HorizontalFields + 2);
        const Vec sum = c.At(HorizontalFields + 3);
        const Vec difference = u - sum;
        rows[RowHorizontalW] += c.At(HorizontalFields) * j1;
        rows[RowHorizontalS] += c.At(HorizontalFields + 1) * j[1];
        rows[RowHorizontalU] += u * j[1];
        rows[RowSum1] += sum * j[1];
        rows[RowSum0] += sum * j0;
        rows[RowShear0] += c.At(HorizontalFields + 4) * j[0];
        rows[RowDifference2] += difference * j2;
        rows[RowShear2] += c.At(HorizontalFields + 5) * j[2];
        rows[RowDifference3] += difference * j[3];
    }
}

/// Sizes of the kinds from one vector of nodes.
template <int FIRST, int LAST>
inline void AddSizes(const double* fields, const Vec depth[4], Vec size, Vec inverseXi, Vec sizes[Kinds]) {
    const Vec weights[4] = {Absolute(depth[0]) * size, Absolute(depth[1]) * size, Absolute(depth[2]) * size,
                            Absolute(depth[3]) * size};
    for (int kind = FIRST; kind < LAST; ++kind) {
        const Vec all = ComponentAt(fields, FieldComponents + kind, weights);
        sizes[kind] += kind % 2 == 1 ? all * inverseXi : all;
    }
}

/// What a kind's size is at one vector of nodes, with weight and wavenumber.
inline void AddMixedSizes(const PairBlock& block, int place, int first, int last, Vec size, Vec inverseXi,
                          Vec sizes[Kinds]) {
    const double* one = block.Components + block.SizeFirst * ComponentNumbers + place;
    const double* two = block.SizeShare > 0 ? one + ComponentNumbers : one;
    for (int kind = first; kind < last; ++kind) {
        const int row = (FieldComponents + kind) * PairNodes;
        const Vec all = ((1 - block.SizeShare) * Load(one + row) + block.SizeShare * Load(two + row)) * size;
        sizes[kind] += kind % 2 == 1 ? all * inverseXi : all;
    }
}

template <bool VERTICAL, bool HORIZONTAL>
inline MixedComponents Mix(const PairBlock& block, int place) {
    constexpr int From = VERTICAL ? 0 : HorizontalFields, To = HORIZONTAL ? FieldComponents : HorizontalFields;
    MixedComponents mixed;
    for (int c = From; c < To; ++c) {
        mixed.Mixed[c] = All(0);
    }
    for (int i = 0; i < block.Mixed; ++i) {
        const double weight = block.Weights[i];
        const double* from = block.Components + i * ComponentNumbers + place;
        for (int c = From; c < To; ++c) {
            mixed.Mixed[c] += weight * Load(from + c * PairNodes);
        }
    }
    return mixed;
}

/// @tparam SLOW  Bessel functions are those that the block gives
template <bool VERTICAL, bool HORIZONTAL, bool MIXED, bool SLOW>
inline void AddPairNodes(const BesselTable& table, const PairBlock& block, double r, PairSums& sums) {
    constexpr int First = VERTICAL ? 0 : 2, Last = HORIZONTAL ? 4 : 2;
    constexpr int FirstRow = VERTICAL ? 0 : VerticalRows, LastRow = HORIZONTAL ? RowCount : VerticalRows;
    Vec rows[RowCount];
    for (int row = FirstRow; row < LastRow; ++row) {
        rows[row] = All(0);  // not what there is already: beside that many small ones would be lost one by one
    }
    const Vec root = Sqrt(All(r));
    for (int from = 0; from < block.Nodes; from += Segment) {
        Vec sizes[Kinds] = {All(0), All(0), All(0), All(0)};
        const int to = from + Segment < block.Nodes ? from + Segment : block.Nodes;
        for (int node = from; node < to; node += 8) {
            alignas(64) double bessel[4][8];
            const bool tiny = !SLOW && block.Xi[node + 7] * r <= TinyArgument;
            if (SLOW) {
                for (int n = 0; n < 4; ++n) {
                    for (int i = 0; i < 8; i += ZIRVO_LANES) {
                        Store(bessel[n] + i, Load(block.Slow + n * PairNodes + node + i));
                    }
                }
            } else if (!tiny) {
                BesselOfEight(table, block.Xi + node, block.XiLow + node, r, bessel);
            }
            Vec last[Kinds] = {All(0), All(0), All(0), All(0)};
            for (int part = 0; part < 8; part += ZIRVO_LANES) {
                const int place = node + part;
                Vec j[4];
                if (tiny) {
                    TinyBessel(table, Load(block.Xi + place) * r, j);
                } else {
                    for (int n = 0; n < 4; ++n) {
                        j[n] = Load(bessel[n] + part);
                    }
                }
                const Vec factor = Load(block.Factor + place), inverseXi = Load(block.InverseXi + place);
                for (int n = 0; n < 4; ++n) {
                    j[n] *= factor;
                }
                const Vec size = Load(block.Size + place);
                if (MIXED) {
                    AddVector<VERTICAL, HORIZONTAL>(Mix<VERTICAL, HORIZONTAL>(block, place), j, inverseXi, rows);
                    AddMixedSizes(block, place, First, Last, size, inverseXi, last);
                } else {
                    FieldComponentsAt at{block.Fields + node * FieldNumbers + part, {}};
                    for (int n = 0; n < 4; ++n) {
                        at.Depth[n] = Load(block.Depth + n * NodeBlock + place);
                    }
                    AddVector<VERTICAL, HORIZONTAL>(at, j, inverseXi, rows);
                    AddSizes<First, Last>(at.Fields, at.Depth, size, inverseXi, last);
                }
            }
            for (int kind = First; kind < Last; ++kind) {
                sizes[kind] += last[kind];
                if (node + 8 == block.Nodes) {
                    sums.Tail[kind] = SumOf(last[kind]) * (1.0 / TailNodes);
                }
            }
        }
        const int segment = from / Segment;
        double envelope = block.SegmentEnvelope[segment] / root[0];
        envelope = envelope < 1 ? envelope : 1;
        for (int kind = First; kind < Last; ++kind) {
            const double size = SumOf(sizes[kind]);
            const double kernel = block.Doubt[segment * block.DoubtStride + kind] * size * envelope;
            const double rounding = block.SegmentRounding[segment] * size * envelope;
            sums.Magnitude[kind] += size;
            sums.Kernel2[kind] += kernel * kernel;
            sums.Sum2[kind] += rounding * rounding;
            const double mean = size * (1.0 / Segment);
            sums.Peak[kind] = mean > sums.Peak[kind] ? mean : sums.Peak[kind];
        }
    }
    for (int row = FirstRow; row < LastRow; ++row) {
        Store(sums.Rows[row], Load(sums.Rows[row]) + rows[row]);
    }
}

template <bool MIXED, bool SLOW>
inline void AddPair(const BesselTable& table, const PairBlock& block, double r, bool vertical, bool horizontal,
                    PairSums& sums) {
    if (vertical && horizontal) {
        AddPairNodes<true, true, MIXED, SLOW>(table, block, r, sums);
    } else if (vertical) {
        AddPairNodes<true, false, MIXED, SLOW>(table, block, r, sums);
    } else {
        AddPairNodes<false, true, MIXED, SLOW>(table, block, r, sums);
    }
}

void AddToPair(const BesselTable& table, const PairBlock& block, double r, bool vertical, bool horizontal,
               PairSums& sums) {
    if (block.Slow != nullptr) {
        AddPair<false, true>(table, block, r, vertical, horizontal, sums);
    } else {
        AddPair<false, false>(table, block, r, vertical, horizontal, sums);
    }
}

void AddMixedToPair(const BesselTable& table, const PairBlock& block, double r, bool vertical, bool horizontal,
                    PairSums& sums) {
    if (block.Slow != nullptr) {
        AddPair<true, true>(table, block, r, vertical, horizontal, sums);
    } else {
        AddPair<true, false>(table, block, r, vertical, horizontal, sums);
    }
}

void Components(const double* fields, const double* depth, int nodes, bool vertical, bool horizontal, double* out) {
    const int from = vertical ? 0 : HorizontalFields, to = horizontal ? FieldComponents : HorizontalFields;
    const int firstKind = vertical ? 0 : 2, lastKind = horizontal ? Kinds : 2;
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const double* numbers = fields + node / 8 * (8 * FieldNumbers) + node % 8;
        Vec d[4], sizes[4];
        for (int n = 0; n < 4; ++n) {
            d[n] = Load(depth + n * NodeBlock + node);
            sizes[n] = Absolute(d[n]);
        }
        for (int c = from; c < to; ++c) {
            Store(out + c * PairNodes + node, ComponentAt(numbers, c, d));
        }
        for (int kind = firstKind; kind < lastKind; ++kind) {
            const int c = FieldComponents + kind;
            Store(out + c * PairNodes + node, ComponentAt(numbers, c, sizes));
        }
    }
}

/// Sizes of the two highest Chebyshev coefficients of a component, added up; half of it is what follows them at most.
inline Vec TailOf(const double* components, const double* tails, int count, int component, int node) {
    Vec one = All(0), two = All(0);
    for (int i = 0; i < count; ++i) {
        const Vec value = Load(components + i * ComponentNumbers + component * PairNodes + node);
        one += tails[i] * value;
        two += tails[MostMixed + i] * value;
    }
    return 0.5 * (Absolute(one) + Absolute(two));
}

/// The largest share of any node: what is missed at each over the least size of the kind there.
inline double LargestShare(Vec missed, const double* components, int count, int kind, int node) {
    Vec least = Load(components + (FieldComponents + kind) * PairNodes + node);
    for (int i = 1; i < count; ++i) {
        const Vec size = Load(components + i * ComponentNumbers + (FieldComponents + kind) * PairNodes + node);
        least = Choose(size < least, size, least);
    }
    double largest = 0;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        // Where the field does not reach there is nothing to be missed.
        const double share = missed[i] > 0 && least[i] > 0 ? missed[i] / least[i] : 0;
        largest = share > largest ? share : largest;
    }
    return largest;
}

void MissedByMixing(const double* components, const double* tails, int count, int nodes, bool vertical, bool horizontal,
                    double* shares) {
    for (int i = 0; i < (nodes + Segment - 1) / Segment * Kinds; ++i) {
        shares[i] = 0;
    }
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        double* const at = shares + node / Segment * Kinds;
        const auto raise = [&](int kind, Vec missed) {
            const double share = LargestShare(missed, components, count, kind, node);
            at[kind] = share > at[kind] ? share : at[kind];
        };
        const auto tail = [&](int c) { return TailOf(components, tails, count, c, node); };
        if (vertical) {
            const Vec u = tail(2);
            raise(0, Larger(Larger(tail(1), u), tail(3)));
            raise(1, Larger(tail(0), u));
        }
        if (horizontal) {
            // Differences of two miss what both do.
            const Vec u = tail(HorizontalFields + 2) + tail(HorizontalFields + 3);
            raise(2, Larger(Larger(tail(HorizontalFields + 1), u),
                            Larger(tail(HorizontalFields + 4), tail(HorizontalFields + 5))));
            raise(3, Larger(tail(HorizontalFields), u));
        }
    }
}
