// Kernels of the layered half-space in wavenumbers, from the layers' states and tractions (engine_layers.inl, notation
// there): the field at each depth, and the rows that are summed.

struct FieldValues {
    Number U, W, T, S, V, Q;  // Q over m2
};

/// The half-space's field of amplitudes a1, a2 and as, to be taken away from a thin layer 1.
inline void SubtractHalfSpace(Constant nu, Number zeta, Constant a1, Constant a2, Constant as, FieldValues& f) {
    const Constant k1 = 2.0 * (1.0 - nu);
    const Constant k2 = 1.0 - 2.0 * nu;
    const Number down = ExpMinus(zeta);
    f.U -= down * (a1 + a2 * (zeta - k1));
    f.W += down * (a1 + a2 * (zeta + k2));
    f.T -= down * (a2 * (1.0 - zeta) - a1);
    f.S -= down * (a1 + a2 * zeta);
    f.V -= down * as;
    f.Q += down * (0.5 * as);
}

/// The field at `distance` (times xi) above a place where it is known; below where the distance is negative.
inline FieldValues FieldAbove(Constant nu, Number distance, const FieldValues& f) {
    const Propagator p = PropagatorOf(nu, distance, HyperbolicOf(distance));
    const Number(&m)[4][4] = p.P;
    const Number q = 2.0 * f.Q;  // over mu
    return {m[0][0] * f.U + m[0][1] * f.W + m[0][2] * f.T + m[0][3] * f.S,
            m[1][0] * f.U + m[1][1] * f.W + m[1][2] * f.T + m[1][3] * f.S,
            m[2][0] * f.U + m[2][1] * f.W + m[2][2] * f.T + m[2][3] * f.S,
            m[3][0] * f.U + m[3][1] * f.W + m[3][2] * f.T + m[3][3] * f.S,
            p.Cosh * f.V - p.Sinh * q,
            0.5 * (p.Cosh * q - p.Sinh * f.V)};
}

/// Displacements on the way down, and how far rounding may have moved them, in units of rounding.
struct Carried {
    Number U, W;
    Vec Doubt;
};

/// True if the doubts of a are less than those of b, taken over all wavenumbers at hand.
inline bool LessDoubt(Vec a, Vec b) {
    return SumOf(a - b) < 0;
}

/// Displacements as compliance times traction, with what that loses: a traction is good to rounding of the larger of
/// its two parts, whatever its own size.
inline Carried FromTraction(const Compliance& c, Number t, Number s) {
    const Vec size = Size(t) + Size(s);
    return {c.UU * t + c.UW * s, c.UW * t + c.WW * s, (Size(c.UU) + Size(c.UW) + Size(c.WW)) * size};
}

/// A thin layer's field at its top and at its bottom.
struct ThinField {
    FieldValues Top, Bottom;
    bool TopIsBetter;
};

/// Displacements at the bottom of a thin layer from the field at its top: two rows of the propagator of -q.
inline void LedThrough(const Hyperbolic& h, Constant nu, Number q, const FieldValues& top, FieldValues& bottom) {
    const Constant d = 1.0 / (1.0 - nu);
    const Number a = h.Cosh, b = h.Sinh;
    const Number m = q * b * (0.5 * d), n = h.Third * d;
    const Number nb = b * (nu * d);
    bottom.U = (a + m) * top.U - (b + n) * top.W + (2.0 * b + n) * top.T - m * top.S;
    bottom.W = (nb + n) * top.U + (a - m) * top.W + m * top.T + (b * ((1.0 - 2.0 * nu) * d) - n) * top.S;
}

/// Displacements at its top from the field at its bottom.
inline void LedUp(const Hyperbolic& h, Constant nu, Number q, const FieldValues& bottom, FieldValues& top) {
    const Constant d = 1.0 / (1.0 - nu);
    const Number a = h.Cosh, b = h.Sinh;
    const Number m = q * b * (0.5 * d), n = h.Third * d;
    const Number nb = b * (nu * d);
    top.U = (a + m) * bottom.U + (b + n) * bottom.W - (2.0 * b + n) * bottom.T - m * bottom.S;
    top.W = (a - m) * bottom.W - (nb + n) * bottom.U + m * bottom.T - (b * ((1.0 - 2.0 * nu) * d) - n) * bottom.S;
}

/// Displacements at the top of a thin layer come from above by continuity or from its own compliance, at its bottom
/// from its top or from the compliance below, whichever has lost less: below a stiff layer that of a soft film, or of a
/// spring, turns the rounding of the tractions into displacements out of all proportion.
inline ThinField ThinFieldOf(const LayerState& s, Constant nu, Number q, const Traction& top, const Traction& bottom,
                             Carried& carried, bool first) {
    const Carried own = FromTraction(s.Top, top.T, top.S);
    if (first || !LessDoubt(carried.Doubt, own.Doubt)) {
        carried = own;
    }
    const Carried below = FromTraction(s.Bottom, bottom.T, bottom.S);
    ThinField f;
    f.Top = {carried.U, carried.W, top.T, top.S, s.Top.VV * (2.0 * top.Q), top.Q};
    f.Bottom = {below.U, below.W, bottom.T, bottom.S, s.Bottom.VV * (2.0 * bottom.Q), bottom.Q};
    const double share = LastLane(q);
    const Vec through = (1 + 2 * share) * carried.Doubt + 2 * share * (Size(top.T) + Size(top.S));
    f.TopIsBetter = LessDoubt(through, below.Doubt);
    if (f.TopIsBetter) {
        LedThrough(s.Sums, nu, q, f.Top, f.Bottom);
    }
    carried = {f.Bottom.U, f.Bottom.W, f.TopIsBetter ? through : below.Doubt};
    return f;
}

inline FieldValues ThinFieldAt(const ThinField& f, Constant nu, Number xi, const KernelDepth& depth) {
    if (depth.FromTop == 0 && f.TopIsBetter) {
        return f.Top;
    }
    if (depth.FromBottom == 0) {
        return f.Bottom;
    }
    return f.TopIsBetter ? FieldAbove(nu, -(xi * ConstantOf(depth.FromTop, depth.FromTopLow)), f.Top)
                         : FieldAbove(nu, xi * ConstantOf(depth.FromBottom, depth.FromBottomLow), f.Bottom);
}

/// Displacements at the bottom of a thick layer.
inline Carried BelowThick(const LayerState& s, const LayerField& a, Constant nu, Number q) {
    const Constant k1 = 2.0 * (1.0 - nu);
    const Constant k2 = 1.0 - 2.0 * nu;
    const Number a1 = s.E * a.A1, a2 = s.E * a.A2;
    return {a1 + a2 * (q - k1) + a.B1 - k1 * a.B2, a.B1 + k2 * a.B2 - a1 - a2 * (q + k2),
            Size(a1) + Size(a2) * (Rounded(q) + 2.0) + Size(a.B1) + 2.0 * Size(a.B2)};
}

/// The field at a depth of a thick layer, or of the last.
inline FieldValues ThickFieldAt(const LayerField& a, Constant nu, Number xi, const KernelDepth& depth, bool last) {
    const Constant k1 = 2.0 * (1.0 - nu);
    const Constant k2 = 1.0 - 2.0 * nu;
    const Number zeta = xi * ConstantOf(depth.FromTop, depth.FromTopLow);
    const Number down = depth.FromTop == 0 ? NumberOf(1.0) : ExpMinus(zeta);
    const Number a1 = a.A1 * down, a2 = a.A2 * down;
    FieldValues f;
    f.U = a1 + a2 * (zeta - k1);
    f.W = -a1 - a2 * (zeta + k2);
    f.T = a2 * (1.0 - zeta) - a1;
    f.S = a1 + a2 * zeta;
    f.V = a.As * down;
    f.Q = -f.V;
    if (!last) {
        const Number eta = xi * ConstantOf(depth.FromBottom, depth.FromBottomLow);
        const Number up = depth.FromBottom == 0 ? NumberOf(1.0) : ExpMinus(eta);
        const Number b1 = a.B1 * up, b2 = a.B2 * up, b = a.Bs * up;
        f.U += b1 + b2 * (eta - k1);
        f.W += b1 + b2 * (eta + k2);
        f.T += b1 + b2 * (eta - 1.0);
        f.S += b1 + b2 * eta;
        f.V += b;
        f.Q += b;
    }
    f.Q = 0.5 * f.Q;
    return f;
}

inline void StoreVertical(const FieldValues& f, Number inverseXi, RowPlace out) {
    Keep(out + RowVerticalW * NodeBlock, f.W * inverseXi);
    Keep(out + RowVerticalS * NodeBlock, f.S);
    Keep(out + RowVerticalU0 * NodeBlock, f.U);
    Keep(out + RowVerticalU1 * NodeBlock, f.U * inverseXi);
    Keep(out + RowVerticalT * NodeBlock, f.T);
    Keep(out + RowVerticalU2 * NodeBlock, f.U);
}

inline void StoreHorizontal(const FieldValues& f, Number inverseXi, RowPlace out) {
    const Number sum = (f.U + f.V) * 0.5;
    const Number difference = (f.U - f.V) * 0.5;
    Keep(out + RowHorizontalW * NodeBlock, f.W * inverseXi);
    Keep(out + RowHorizontalS * NodeBlock, f.S);
    Keep(out + RowHorizontalU * NodeBlock, f.U);
    Keep(out + RowSum1 * NodeBlock, sum);
    Keep(out + RowSum0 * NodeBlock, sum * inverseXi);
    Keep(out + RowShear0 * NodeBlock, (f.T + f.Q) * 0.5);
    Keep(out + RowDifference2 * NodeBlock, difference * inverseXi);
    Keep(out + RowShear2 * NodeBlock, (f.T - f.Q) * 0.5);
    Keep(out + RowDifference3 * NodeBlock, difference);
}

/// A layer on the way down, as those see it who take its field.
struct LayerHere {
    int Layer;
    bool Thin, Last, Horizontal;
    Constant Nu, M2;
    Number Xi;
    const LayerState* State;  // none of the last
    const LayerField& Thick;
    const ThinField& ThinOne;
};

/// Takes layer 1's own half-space out of its field at zeta.
inline void WithoutHalfSpace(const LayerHere& here, Number zeta, FieldValues& f) {
    const double t = here.Horizontal ? -1.0 : 0.0, s = here.Horizontal ? 0.0 : -1.0;
    SubtractHalfSpace(here.Nu, zeta, s / here.M2, (t + s) / here.M2, -2 * t / here.M2, f);
}

/// The field at a depth of the layer; in layer 1 without its own half-space's.
inline FieldValues FieldIn(const LayerHere& here, const KernelDepth& depth) {
    FieldValues f = here.Thin ? ThinFieldAt(here.ThinOne, here.Nu, here.Xi, depth)
                              : ThickFieldAt(here.Thick, here.Nu, here.Xi, depth, here.Last);
    if (here.Thin && here.Layer == 0) {
        WithoutHalfSpace(here, here.Xi * ConstantOf(depth.FromTop, depth.FromTopLow), f);
    }
    return f;
}

/// Takes the rows at some depths, by layer and depth.
struct DepthTaker {
    const KernelDepth* Depths;
    int Count;
    Number InverseXi;
    RowPlace Out;
    int Next = 0;

    bool More() const { return Next < Count; }
    void Take(const LayerHere& here) {
        for (; Next < Count && Depths[Next].Layer == here.Layer; ++Next) {
            const FieldValues f = FieldIn(here, Depths[Next]);
            const RowPlace row = Out + Next * RowCount * NodeBlock;
            if (here.Horizontal) {
                StoreHorizontal(f, InverseXi, row);
            } else {
                StoreVertical(f, InverseXi, row);
            }
        }
    }
    /// What the field does not reach is 0.
    void TakeRest(bool horizontal) {
        const int first = horizontal ? VerticalRows : 0;
        const int end = horizontal ? RowCount : VerticalRows;
        for (; Next < Count; ++Next) {
            for (int r = first; r < end; ++r) {
                Keep(Out + (Next * RowCount + r) * NodeBlock, NumberOf(0.0));
            }
        }
    }
};

/// One load case downwards at one vector of nodes. The traction is unit: (T, S, Q) at the surface. Returns the deepest
/// layer that the field reaches with more than ReachLimit of the surface traction.
constexpr double ReachLimit = 1e-26;

template <class Taker>
inline int Downwards(const LayeredSystem& system, double radius, const LayerState* states, Number xi, int bottom,
                     bool horizontal, Taker& taker) {
    const double t0 = horizontal ? -1.0 : 0.0, s0 = horizontal ? 0.0 : -1.0, q0 = t0;
    Traction t{NumberOf(t0), NumberOf(s0), NumberOf(q0)};
    int layer = 0;
    Constant above = ConstantOf(1, 0);  // what the traction at hand is taken over
    Carried carried{};
    for (; layer <= bottom; ++layer) {
        const Constant m2 = ConstantOf(system.M2[layer], system.M2Low[layer]);
        const Constant nu = ConstantOf(system.Nu[layer], 0);
        const bool last = layer == bottom;
        const bool thin = !last && states[layer].Thin;
        const Number q = xi * ConstantOf(system.Thickness[layer], 0);
        const Constant change = above / m2;
        above = m2;
        t.T *= All(change);
        t.S *= All(change);
        t.Q *= All(change);
        const Traction top = t;
        LayerField field{};
        ThinField thinField;
        if (last) {
            field.A1 = t.S;
            field.A2 = t.T + t.S;
            field.As = -2.0 * t.Q;
        } else {
            field = DownLayer(states[layer], q, t);
            if (taker.More()) {
                if (thin) {
                    thinField = ThinFieldOf(states[layer], nu, q, top, t, carried, layer == 0);
                } else if (layer + 1 < bottom && states[layer + 1].Thin) {
                    carried = BelowThick(states[layer], field, nu, q);
                }
            }
            if (layer == 0 && !thin) {
                TakeOutHalfSpace(states[0], q, t0 / m2, s0 / m2, q0 / m2, field);
            }
        }
        taker.Take({layer, thin, last, horizontal, nu, m2, xi, last ? nullptr : states + layer, field, thinField});
        if (last) {
            break;
        }
        const Number spring = xi * (ConstantOf(system.Spring[layer], system.SpringLow[layer]) * radius * m2);
        carried.U += spring * t.T;
        carried.Doubt += Size(spring) * (Size(t.T) + Size(t.S));
        const double reach = SumOf(Size(t.T) + Size(t.S) + Size(t.Q)) * system.M2[layer];
        if (reach < ReachLimit) {
            ++layer;
            break;
        }
    }
    taker.TakeRest(horizontal);
    return layer < bottom ? layer : bottom;
}

/// All layers' states at one vector of nodes, from layer `bottom` upwards.
/// @param known  the states are those of another radius: what does not hang on the radius is taken from them
inline void Upwards(const LayeredSystem& system, double radius, Number xi, int bottom, LayerState* states,
                    bool known = false) {
    Compliance c = HalfSpaceCompliance(ConstantOf(system.Nu[bottom], 0));
    Constant m2Below = ConstantOf(system.M2[bottom], system.M2Low[bottom]);
    Propagator propagator{};
    for (int i = bottom - 1; i >= 0; --i) {
        LayerState& s = states[i];
        const Constant m2 = ConstantOf(system.M2[i], system.M2Low[i]);
        const Constant ratio = m2 / m2Below;
        const Constant spring = ConstantOf(system.Spring[i], system.SpringLow[i]) * radius * m2;
        const Compliance below = {c.UU * ratio - xi * spring, c.UW * ratio, c.WW * ratio,
                                  c.VV * ratio - xi * (0.5 * spring)};
        const Number q = xi * ConstantOf(system.Thickness[i], 0);
        s.Thin = LastLane(q) <= ThinLimit;  // the largest: wavenumbers ascend
        // Many layers of one thickness share their exponential, the dearest part of a layer.
        const bool same = i + 1 < bottom && system.Thickness[i] == system.Thickness[i + 1];
        if (s.Thin) {
            // A layer below with the same thickness is as thin.
            if (!known) {
                s.Sums = same ? states[i + 1].Sums : HyperbolicOf(q);
            }
            if (!same || system.Nu[i] != system.Nu[i + 1]) {
                propagator = PropagatorOf(ConstantOf(system.Nu[i], 0), q, s.Sums);
            }
            ThroughThin(propagator, below, s);
        } else {
            if (!known) {
                s.E = same ? states[i + 1].E : ExpMinus(q);
            }
            ThroughThick(ConstantOf(system.Nu[i], 0), q, below, s);
        }
        c = s.Top;
        m2Below = m2;
    }
}

void Kernels(const LayeredSystem& system, double radius, NodePlace xi, int nodes, const KernelDepth* depths,
             int depthCount, bool vertical, bool horizontal, int& deepest, RowPlace out) {
    LayerState states[MostLayers];
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Number x = NumberAt(xi + node);
        const int bottom = deepest;
        Upwards(system, radius, x, bottom, states);
        int reach = 0;
        for (int load = 0; load < 2; ++load) {
            const bool shear = load == 1;
            if (shear ? horizontal : vertical) {
                DepthTaker taker{depths, depthCount, 1.0 / x, out + node};
                const int other = Downwards(system, radius, states, x, bottom, shear, taker);
                reach = other > reach ? other : reach;
            }
        }
        deepest = reach;
    }
}
