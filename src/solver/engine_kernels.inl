// Kernels of the layered half-space in wavenumbers: compliance upwards, traction downwards, only decaying exponentials.
//
// Notation: xi wavenumber, h thickness, q = xi h, k1 = 2 (1 - nu), k2 = 1 - 2 nu, m2 = E / (1 + nu), mu = m2 / 2; u, w,
// v displacements times xi; T, S, Q tractions. A layer's field is exp(-zeta) dn(zeta) A + exp(-eta) up(eta) B with zeta
// the distance from its top and eta from its bottom, both times xi. The modes, as (u, w, T / m2, S / m2):
//   dn: (1, -1, -1, 1) and (zeta - k1, -zeta - k2, 1 - zeta, zeta); up: (1, 1, 1, 1) and (eta - k1, eta + k2, eta - 1,
//   eta); scalar (v, Q / mu): dn (1, -1), up (1, 1).
// Stored for each layer: e = exp(-q), R (B's amplitude from A's, without e), G^-1 (A's amplitude from the traction over
// m2 at the top), and the scalar rho and 1 / g. Steps: from the deepest layer that the field reaches upwards, each
// interface's spring added to the compliance of what lies below; then downwards from the surface traction. Layer 1's
// own half-space share is taken out of the amplitudes, for it decays too slowly near the surface; half_space adds it in
// closed form. Source: the two independent solutions of plane-strain elasticity exp(-x) and x exp(-x), and one of
// torsion, as in Burmister (1945), J. Appl. Phys. 16, in terms of local exponentials.

constexpr int MostLayers = 100;

struct LayerState {
    Vec E, R00, R01, R10, R11, Gi00, Gi01, Gi10, Gi11, Rho, InverseG;
};

/// Compliance at the top of the half-space below an interface, over nothing yet: (u, w) = C (T, S), v = c Q.
struct Compliance {
    Vec UU, UW, WW, VV;
};

inline Compliance HalfSpaceCompliance(double m2, double nu) {
    const double k1 = 2 * (1 - nu);
    const double k2 = 1 - 2 * nu;
    return {All(-k1 / m2), All(-k2 / m2), All(-k1 / m2), All(-2 / m2)};
}

/// Takes the compliance below a layer's bottom interface (spring included) to the layer's top, storing the layer's
/// state.
inline Compliance ThroughLayer(const Compliance& below, double m2, double nu, Vec q, LayerState& s) {
    const double inverseM2 = 1 / m2;
    const double k1 = 2 * (1 - nu);
    const double k2 = 1 - 2 * nu;
    const Vec cuu = below.UU * m2, cuw = below.UW * m2, cww = below.WW * m2;
    const Vec e2 = s.E * s.E;
    const Vec m00 = 1.0 - cuu - cuw, m01 = cuu - k1, m10 = 1.0 - cuw - cww, m11 = cuw + k2;
    const Vec n00 = 1.0 + cuu - cuw, n01 = q - k1 - cuu * (1.0 - q) - cuw * q;
    const Vec n10 = cuw - cww - 1.0, n11 = -q - k2 - cuw * (1.0 - q) - cww * q;
    const Vec mi = 1.0 / (m01 * m10 - m00 * m11);  // minus the inverse determinant
    s.R00 = (m11 * n00 - m01 * n10) * mi;
    s.R01 = (m11 * n01 - m01 * n11) * mi;
    s.R10 = (m00 * n10 - m10 * n00) * mi;
    s.R11 = (m00 * n11 - m10 * n01) * mi;
    const Vec g00 = e2 * (s.R00 + (q - 1.0) * s.R10) - 1.0, g01 = e2 * (s.R01 + (q - 1.0) * s.R11) + 1.0;
    const Vec g10 = e2 * (s.R00 + q * s.R10) + 1.0, g11 = e2 * (s.R01 + q * s.R11);
    const Vec gi = 1.0 / (g00 * g11 - g01 * g10);
    s.Gi00 = g11 * gi;
    s.Gi01 = -g01 * gi;
    s.Gi10 = -g10 * gi;
    s.Gi11 = g00 * gi;
    const Vec d00 = e2 * (s.R00 + (q - k1) * s.R10) + 1.0, d01 = e2 * (s.R01 + (q - k1) * s.R11) - k1;
    const Vec d10 = e2 * (s.R00 + (q + k2) * s.R10) - 1.0, d11 = e2 * (s.R01 + (q + k2) * s.R11) - k2;
    const Vec c = below.VV * (0.5 * m2);
    // rho = -(1 + c) / (1 - c) and 1 / (e2 rho - 1), which is mu / g, over one denominator.
    const Vec more = 1.0 + c, less = 1.0 - c;
    const Vec sum = more * e2 + less;
    const Vec both = -1.0 / (less * sum);
    s.Rho = more * sum * both;
    s.InverseG = less * less * both;
    // C is symmetric (reciprocity): the mean of the two off-diagonal values keeps rounding from tilting it.
    const Vec uw = 0.5 * (d00 * s.Gi01 + d01 * s.Gi11 + d10 * s.Gi00 + d11 * s.Gi10);
    return {(d00 * s.Gi00 + d01 * s.Gi10) * inverseM2, uw * inverseM2, (d10 * s.Gi01 + d11 * s.Gi11) * inverseM2,
            (e2 * s.Rho + 1.0) * s.InverseG * (2 * inverseM2)};
}

/// Traction over the layer's m2 at its top, going down.
struct Traction {
    Vec T, S, Q;
};

struct Amplitudes {
    Vec A1, A2, B1, B2, As, Bs;
};

/// Amplitudes from the traction over m2 at the top, and that traction at the bottom (over the same m2).
inline Amplitudes DownLayer(const LayerState& s, Vec q, Traction& t) {
    Amplitudes a;
    a.A1 = s.Gi00 * t.T + s.Gi01 * t.S;
    a.A2 = s.Gi10 * t.T + s.Gi11 * t.S;
    a.B1 = s.E * (s.R00 * a.A1 + s.R01 * a.A2);
    a.B2 = s.E * (s.R10 * a.A1 + s.R11 * a.A2);
    a.As = 2.0 * s.InverseG * t.Q;  // Q over mu
    a.Bs = s.E * s.Rho * a.As;
    t.T = s.E * (a.A2 * (1.0 - q) - a.A1) + a.B1 - a.B2;
    t.S = s.E * (a.A1 + q * a.A2) + a.B1;
    t.Q = 0.5 * (a.Bs - s.E * a.As);
    return a;
}

/// Layer 1 without its own half-space: amplitudes of the traction (T, S, Q) over m2 at the surface.
inline void TakeOutHalfSpace(const LayerState& s, Vec q, double t, double n, double turned, Amplitudes& a) {
    const Vec e2 = s.E * s.E;
    const double a1 = n;  // F_dn(0)^-1: A1 = S / m2, A2 = T / m2 + A1
    const double a2 = t + n;
    const Vec p0 = e2 * (s.R00 * a1 + s.R01 * a2 + (q - 1.0) * (s.R10 * a1 + s.R11 * a2));
    const Vec p1 = e2 * (s.R00 * a1 + s.R01 * a2 + q * (s.R10 * a1 + s.R11 * a2));
    a.A1 = -(s.Gi00 * p0 + s.Gi01 * p1);
    a.A2 = -(s.Gi10 * p0 + s.Gi11 * p1);
    a.As = 2.0 * turned * (e2 * s.Rho * s.InverseG);  // 2 turned (1 / (e2 rho - 1) + 1)
}

struct FieldValues {
    Vec U, W, T, S, V, Q;
};

/// The field at a depth; tractions over m2.
inline FieldValues FieldAt(const Amplitudes& a, double nu, Vec xi, const KernelDepth& depth, bool last) {
    const double k1 = 2 * (1 - nu);
    const double k2 = 1 - 2 * nu;
    const Vec zeta = xi * depth.FromTop;
    const Vec down = depth.FromTop == 0 ? All(1.0) : ExpMinus(zeta);
    const Vec a1 = a.A1 * down, a2 = a.A2 * down;
    FieldValues f;
    f.U = a1 + a2 * (zeta - k1);
    f.W = -a1 - a2 * (zeta + k2);
    f.T = a2 * (1.0 - zeta) - a1;
    f.S = a1 + a2 * zeta;
    f.V = a.As * down;
    f.Q = -f.V;
    if (!last) {
        const Vec eta = xi * depth.FromBottom;
        const Vec up = depth.FromBottom == 0 ? All(1.0) : ExpMinus(eta);
        const Vec b1 = a.B1 * up, b2 = a.B2 * up, b = a.Bs * up;
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

inline double LargestOf(Vec x) {
    double largest = 0;
    for (int i = 0; i < ZIRVO_LANES; ++i) {
        const double size = x[i] < 0 ? -x[i] : x[i];
        largest = size > largest ? size : largest;
    }
    return largest;
}

inline void StoreVertical(const FieldValues& f, Vec inverseXi, double* out) {
    Store(out + RowVerticalW * NodeBlock, f.W * inverseXi);
    Store(out + RowVerticalS * NodeBlock, f.S);
    Store(out + RowVerticalU0 * NodeBlock, f.U);
    Store(out + RowVerticalU1 * NodeBlock, f.U * inverseXi);
    Store(out + RowVerticalT * NodeBlock, f.T);
    Store(out + RowVerticalU2 * NodeBlock, f.U);
}

inline void StoreHorizontal(const FieldValues& f, Vec inverseXi, double* out) {
    const Vec sum = (f.U + f.V) * 0.5;
    const Vec difference = (f.U - f.V) * 0.5;
    Store(out + RowHorizontalW * NodeBlock, f.W * inverseXi);
    Store(out + RowHorizontalS * NodeBlock, f.S);
    Store(out + RowHorizontalU * NodeBlock, f.U);
    Store(out + RowSum1 * NodeBlock, sum);
    Store(out + RowSum0 * NodeBlock, sum * inverseXi);
    Store(out + RowShear0 * NodeBlock, (f.T + f.Q) * 0.5);
    Store(out + RowDifference2 * NodeBlock, difference * inverseXi);
    Store(out + RowShear2 * NodeBlock, (f.T - f.Q) * 0.5);
    Store(out + RowDifference3 * NodeBlock, difference);
}

/// One load case downwards at one vector of nodes. The traction is unit: (T, S, Q) at the surface. Returns the deepest
/// layer that the field reaches with more than ReachLimit of the surface traction.
constexpr double ReachLimit = 1e-26;

inline int Downwards(const LayeredSystem& system, const LayerState* states, Vec xi, int bottom, bool horizontal,
                     const KernelDepth* depths, int depthCount, double* out) {
    const Vec inverseXi = 1.0 / xi;
    const double t0 = horizontal ? -1.0 : 0.0, s0 = horizontal ? 0.0 : -1.0, q0 = t0;
    Traction t{All(t0), All(s0), All(q0)};
    int next = 0;
    int layer = 0;
    double above = 1;  // what the traction at hand is taken over
    for (; layer <= bottom; ++layer) {
        const double m2 = system.M2[layer];
        const double nu = system.Nu[layer];
        const bool last = layer == bottom;
        const Vec q = xi * system.Thickness[layer];
        const double change = above / m2;
        above = m2;
        t.T *= All(change);
        t.S *= All(change);
        t.Q *= All(change);
        Amplitudes a;
        if (last) {
            a = {t.S, t.T + t.S, All(0), All(0), -2.0 * t.Q, All(0)};
        } else {
            a = DownLayer(states[layer], q, t);
            if (layer == 0) {
                TakeOutHalfSpace(states[0], q, t0 / m2, s0 / m2, q0 / m2, a);
            }
        }
        for (; next < depthCount && depths[next].Layer == layer; ++next) {
            const FieldValues f = FieldAt(a, nu, xi, depths[next], last);
            double* row = out + next * RowCount * NodeBlock;
            if (horizontal) {
                StoreHorizontal(f, inverseXi, row);
            } else {
                StoreVertical(f, inverseXi, row);
            }
        }
        if (last) {
            break;
        }
        const double reach = (LargestOf(t.T) + LargestOf(t.S) + LargestOf(t.Q)) * m2;
        if (reach < ReachLimit) {
            ++layer;
            break;
        }
    }
    const int first = horizontal ? VerticalRows : 0;
    const int end = horizontal ? RowCount : VerticalRows;
    for (; next < depthCount; ++next) {
        for (int r = first; r < end; ++r) {
            Store(out + (next * RowCount + r) * NodeBlock, All(0));
        }
    }
    return layer < bottom ? layer : bottom;
}

void Kernels(const LayeredSystem& system, double radius, const double* xi, int nodes, const KernelDepth* depths,
             int depthCount, bool vertical, bool horizontal, int& deepest, double* out) {
    LayerState states[MostLayers];
    for (int node = 0; node < nodes; node += ZIRVO_LANES) {
        const Vec x = Load(xi + node);
        const int bottom = deepest;
        Compliance c = HalfSpaceCompliance(system.M2[bottom], system.Nu[bottom]);
        for (int i = bottom - 1; i >= 0; --i) {
            const Vec spring = x * (system.Spring[i] * radius);
            c.UU -= spring;
            c.VV -= spring;
            // Many layers of one thickness share their exponential, the dearest part of a layer.
            const bool same = i + 1 < bottom && system.Thickness[i] == system.Thickness[i + 1];
            states[i].E = same ? states[i + 1].E : ExpMinus(x * system.Thickness[i]);
            c = ThroughLayer(c, system.M2[i], system.Nu[i], x * system.Thickness[i], states[i]);
        }
        int reach = 0;
        if (vertical) {
            reach = Downwards(system, states, x, bottom, false, depths, depthCount, out + node);
        }
        if (horizontal) {
            const int other = Downwards(system, states, x, bottom, true, depths, depthCount, out + node);
            reach = other > reach ? other : reach;
        }
        deepest = reach;
    }
}
