// Layers in wavenumbers: compliance upwards, traction downwards, only decaying exponentials. engine_kernels.inl makes
// the fields of it.
//
// Notation: xi wavenumber, h thickness, q = xi h, k1 = 2 (1 - nu), k2 = 1 - 2 nu, d = 1 / (1 - nu), m2 = E / (1 + nu),
// mu = m2 / 2; u, w, v displacements times xi; T, S, Q tractions. All tractions are taken over m2 of their layer, and
// so are compliances: (u, w) = c (T, S), v = c Q / mu. Steps: from the deepest layer that the field reaches upwards,
// each interface's spring added to the compliance of what lies below; then downwards from the surface traction. Layer
// 1's own half-space share is taken out, for it decays too slowly near the surface; half_space adds it in closed form.
// A layer is taken in one of two ways:
//   thick (q above ThinLimit): its field is exp(-zeta) dn(zeta) A + exp(-eta) up(eta) B with zeta the distance from its
//   top
//     and eta from its bottom, both times xi. The modes, as (u, w, T, S): dn (1, -1, -1, 1) and (zeta - k1, -zeta - k2,
//     1 - zeta, zeta); up (1, 1, 1, 1) and (eta - k1, eta + k2, eta - 1, eta); scalar (v, Q / mu): dn (1, -1), up (1,
//     1). Stored: e = exp(-q), R (B's amplitude from A's, without e), G^-1 (A's amplitude from the traction at the
//     top), and the scalar rho and mu / g. Nothing grows.
//   thin: there the modes nearly coincide and their sums cancel, the more the stiffer the layer is than what it lies
//   on. So
//     the state y = (u, w, T, S) is carried by the propagator of y' = B y,
//     exp(-B q) = ch - sh B + (q sh / 2) N - ((q ch - sh) / 2) B N, N = B^2 - 1, N^2 = 0.
//     Stored: c at the bottom and at the top, K^-1 (the traction at the bottom from that at the top).
// Source: the two independent solutions of plane-strain elasticity exp(-x) and x exp(-x), and one of torsion, as in
// Burmister (1945), J. Appl. Phys. 16, in terms of local exponentials.

constexpr int MostLayers = 100;
/// Largest q of a thin layer: sums of modes lose digits below 1, the propagator exp(2 q) above.
constexpr double ThinLimit = 1.5;

/// Compliance over the layer's m2 (scalar: over mu).
struct Compliance {
    Number UU, UW, WW, VV;
};

/// Traction over the layer's m2.
struct Traction {
    Number T, S, Q;
};

/// ch q, sh q and (q ch q - sh q) / 2 for |q| <= ThinLimit.
struct Hyperbolic {
    Number Cosh, Sinh, Third;
};
Hyperbolic HyperbolicOf(Number q);

/// One layer at one vector of nodes.
struct LayerState {
    bool Thin;
    Number E;                        // thick: exp(-q)
    Number R00, R01, R10, R11, Rho;  // thick
    Number I00, I01, I10, I11, IQ;   // thick: G^-1, mu / g; thin: K^-1
    Compliance Top, Bottom;          // thin
    Hyperbolic Sums;                 // thin
};

inline Compliance HalfSpaceCompliance(Constant nu) {
    const Constant k1 = 2.0 * (1.0 - nu);
    const Constant k2 = 1.0 - 2.0 * nu;
    return {All(-k1), All(-k2), All(-k1), NumberOf(-1.0)};
}

/// exp(-B q), rows and columns u, w, T, S.
struct Propagator {
    Number P[4][4];
    Number Cosh, Sinh;
};

inline Propagator PropagatorOf(Constant nu, Number q, const Hyperbolic& f) {
    const Constant d = 1.0 / (1.0 - nu);
    const Number a = f.Cosh, b = f.Sinh;
    const Number m = q * b * (0.5 * d), n = f.Third * d;
    const Number nb = b * (nu * d);
    return {{{a + m, b + n, -2.0 * b - n, -m},
             {-nb - n, a - m, m, n - b * ((1.0 - 2.0 * nu) * d)},
             {-n - b * d, -m, a + m, nb + n},
             {m, n, -b - n, a - m}},
            a,
            b};
}

/// The compliance below a thin layer taken to its top.
inline void ThroughThin(const Propagator& p, const Compliance& below, LayerState& s) {
    const Number(&m)[4][4] = p.P;
    s.Bottom = below;
    const Number uu = below.UU, uw = below.UW, ww = below.WW, c = below.VV;
    const Number k00 = m[2][0] * uu + m[2][1] * uw + m[2][2], k01 = m[2][0] * uw + m[2][1] * ww + m[2][3];
    const Number k10 = m[3][0] * uu + m[3][1] * uw + m[3][2], k11 = m[3][0] * uw + m[3][1] * ww + m[3][3];
    const Number inverse = 1.0 / (k00 * k11 - k01 * k10);
    s.I00 = k11 * inverse;
    s.I01 = -k01 * inverse;
    s.I10 = -k10 * inverse;
    s.I11 = k00 * inverse;
    const Number d00 = m[0][0] * uu + m[0][1] * uw + m[0][2], d01 = m[0][0] * uw + m[0][1] * ww + m[0][3];
    const Number d10 = m[1][0] * uu + m[1][1] * uw + m[1][2], d11 = m[1][0] * uw + m[1][1] * ww + m[1][3];
    s.IQ = 1.0 / (p.Cosh - p.Sinh * c);
    // c is symmetric (reciprocity): the mean of the two off-diagonal values keeps rounding from tilting it.
    s.Top = {d00 * s.I00 + d01 * s.I10, 0.5 * (d00 * s.I01 + d01 * s.I11 + d10 * s.I00 + d11 * s.I10),
             d10 * s.I01 + d11 * s.I11, (p.Cosh * c - p.Sinh) * s.IQ};
}

/// The same for a thick layer, whose E stands already.
inline void ThroughThick(Constant nu, Number q, const Compliance& below, LayerState& s) {
    const Constant k1 = 2.0 * (1.0 - nu);
    const Constant k2 = 1.0 - 2.0 * nu;
    const Number cuu = below.UU, cuw = below.UW, cww = below.WW, c = below.VV;
    const Number e2 = s.E * s.E;
    const Number m00 = 1.0 - cuu - cuw, m01 = cuu - k1, m10 = 1.0 - cuw - cww, m11 = cuw + k2;
    const Number n00 = 1.0 + cuu - cuw, n01 = q - k1 - cuu * (1.0 - q) - cuw * q;
    const Number n10 = cuw - cww - 1.0, n11 = -q - k2 - cuw * (1.0 - q) - cww * q;
    const Number mi = 1.0 / (m01 * m10 - m00 * m11);  // minus the inverse determinant
    s.R00 = (m11 * n00 - m01 * n10) * mi;
    s.R01 = (m11 * n01 - m01 * n11) * mi;
    s.R10 = (m00 * n10 - m10 * n00) * mi;
    s.R11 = (m00 * n11 - m10 * n01) * mi;
    const Number g00 = e2 * (s.R00 + (q - 1.0) * s.R10) - 1.0, g01 = e2 * (s.R01 + (q - 1.0) * s.R11) + 1.0;
    const Number g10 = e2 * (s.R00 + q * s.R10) + 1.0, g11 = e2 * (s.R01 + q * s.R11);
    const Number gi = 1.0 / (g00 * g11 - g01 * g10);
    s.I00 = g11 * gi;
    s.I01 = -g01 * gi;
    s.I10 = -g10 * gi;
    s.I11 = g00 * gi;
    const Number d00 = e2 * (s.R00 + (q - k1) * s.R10) + 1.0, d01 = e2 * (s.R01 + (q - k1) * s.R11) - k1;
    const Number d10 = e2 * (s.R00 + (q + k2) * s.R10) - 1.0, d11 = e2 * (s.R01 + (q + k2) * s.R11) - k2;
    // rho = -(1 + c) / (1 - c) and mu / g = 1 / (e2 rho - 1), over one denominator.
    const Number more = 1.0 + c, less = 1.0 - c;
    const Number sum = more * e2 + less;
    const Number both = -1.0 / (less * sum);
    s.Rho = more * sum * both;
    s.IQ = less * less * both;
    s.Top = {d00 * s.I00 + d01 * s.I10, 0.5 * (d00 * s.I01 + d01 * s.I11 + d10 * s.I00 + d11 * s.I10),
             d10 * s.I01 + d11 * s.I11, (e2 * s.Rho + 1.0) * s.IQ};
}

/// Amplitudes of a thick layer.
struct LayerField {
    Number A1, A2, B1, B2, As, Bs;
};

/// The layer's field from the traction at its top, and the traction at its bottom (over the same m2).
inline LayerField DownLayer(const LayerState& s, Number q, Traction& t) {
    LayerField f{};
    const Number first = s.I00 * t.T + s.I01 * t.S;
    const Number second = s.I10 * t.T + s.I11 * t.S;
    if (s.Thin) {
        t = {first, second, s.IQ * t.Q};
        return f;
    }
    f.A1 = first;
    f.A2 = second;
    f.B1 = s.E * (s.R00 * f.A1 + s.R01 * f.A2);
    f.B2 = s.E * (s.R10 * f.A1 + s.R11 * f.A2);
    f.As = 2.0 * s.IQ * t.Q;  // Q over mu
    f.Bs = s.E * s.Rho * f.As;
    t.T = s.E * (f.A2 * (1.0 - q) - f.A1) + f.B1 - f.B2;
    t.S = s.E * (f.A1 + q * f.A2) + f.B1;
    t.Q = 0.5 * (f.Bs - s.E * f.As);
    return f;
}

/// Takes layer 1's own half-space out of a thick layer's amplitudes: (t, n, turned) the surface traction over m2.
inline void TakeOutHalfSpace(const LayerState& s, Number q, Constant t, Constant n, Constant turned, LayerField& f) {
    const Number e2 = s.E * s.E;
    const Constant a1 = n;  // the half-space's amplitudes: A1 = S, A2 = T + A1
    const Constant a2 = t + n;
    const Number p0 = e2 * (s.R00 * a1 + s.R01 * a2 + (q - 1.0) * (s.R10 * a1 + s.R11 * a2));
    const Number p1 = e2 * (s.R00 * a1 + s.R01 * a2 + q * (s.R10 * a1 + s.R11 * a2));
    f.A1 = -(s.I00 * p0 + s.I01 * p1);
    f.A2 = -(s.I10 * p0 + s.I11 * p1);
    f.As = 2.0 * turned * (e2 * s.Rho * s.IQ);  // 2 turned (1 / (e2 rho - 1) + 1)
}
