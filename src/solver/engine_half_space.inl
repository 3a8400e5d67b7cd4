// The twelve integrals of the half-space as one angular sum.
//
// Notation: psi runs round the circle of radius a; (ex, ey) = L exp(i chi) the vector from the point psi of the circle
// to the field point (r, 0); rho = sqrt(L^2 + z^2); q = L / (rho + z). For n >= 1: I(n, k) = (a / pi) integral over psi
// from 0 to pi of cos(psi + (n - 1) chi) g(n - 1, k); n = 0: (a / pi) integral of (a - r cos psi) / L g(1, k), with
// g(m, -1) = q^m / m, g(m, 0) = q^m / rho, g(m, 1) = q^m (z + m rho) / rho^3. I(1, -1), where g would be a logarithm,
// is integrated by parts: (a / pi) a r integral of sin^2 psi / (rho (rho + z)). The integrand is sharp within sqrt(((r
// - a)^2 + z^2) / (a r)) of psi = 0, so panels are halved towards 0 until there. L^2 is taken as (r - a)^2 + 4 a r
// sin^2(psi / 2), and r - a cos psi as (r - a) + 2 a sin^2(psi / 2): the plain differences lose five digits at the
// edge. Source: Graf's addition theorem under the Lipschitz integral, term by term.

struct HalfSpaceSums {
    Vec I0[3], I1[3], I2[3], I3[3];
};

inline void AddPanel(const AngleTable::Panel& panel, double a, double gap, double z, HalfSpaceSums& s) {
    const double r = a + gap;
    for (int i = 0; i < AngleTable::Nodes; i += ZIRVO_LANES) {
        const Vec weight = Load(panel.Weight + i), cosine = Load(panel.Cos + i), sine = Load(panel.Sin + i);
        const Vec half = Load(panel.HalfSquared + i);
        const Vec length2 = half * (4 * a * r) + gap * gap;
        const Vec rho2 = length2 + z * z;
        const Vec rho = Sqrt(rho2);
        const Vec inverseRho = 1.0 / rho;
        const Vec inverseSum = 1.0 / (rho + z);
        // exp(i chi) q without L: (ex, ey) / (rho + z)
        const Vec ex = half * (2 * a) + gap, ey = sine * -a;
        const Vec qx = ex * inverseSum, qy = ey * inverseSum;
        const Vec q2x = qx * qx - qy * qy, q2y = 2.0 * qx * qy;
        const Vec c1 = cosine * qx - sine * qy;                  // cos(psi + chi) q
        const Vec c2 = cosine * q2x - sine * q2y;                // cos(psi + 2 chi) q^2
        const Vec toAxis = (half * (2 * r) - gap) * inverseSum;  // (a - r cos psi) / L times q
        const Vec inverseRho3 = inverseRho * inverseRho * inverseRho;
        const Vec w0 = weight * inverseRho;
        const Vec h0 = weight * z * inverseRho3, h1 = weight * (z + rho) * inverseRho3;
        const Vec h2 = weight * (z + 2.0 * rho) * inverseRho3;
        s.I0[0] += weight * toAxis;
        s.I0[1] += w0 * toAxis;
        s.I0[2] += h1 * toAxis;
        s.I1[0] += w0 * (sine * sine * inverseSum) * (a * r);
        s.I1[1] += w0 * cosine;
        s.I1[2] += h0 * cosine;
        s.I2[0] += weight * c1;
        s.I2[1] += w0 * c1;
        s.I2[2] += h1 * c1;
        s.I3[0] += weight * c2 * 0.5;
        s.I3[1] += w0 * c2;
        s.I3[2] += h2 * c2;
    }
}

void HalfSpace(const AngleTable& table, double a, double gap, double z, HalfSpaceIntegrals& out) {
    HalfSpaceSums s{};
    const double r = a + gap;
    double sharp2 = (gap * gap + z * z) / (a * r);  // square of the angle; infinite on the axis
    int panels = 0;
    while (panels < AngleTable::MaxPanels && sharp2 < 9.8696044010893586188) {
        AddPanel(table.Ring[panels], a, gap, z, s);
        ++panels;
        sharp2 *= 4;
    }
    AddPanel(table.Core[panels], a, gap, z, s);
    const double scale = a * 0.31830988618379067154;
    for (int k = 0; k < 3; ++k) {
        out.I[0][k] = scale * SumOf(s.I0[k]);
        out.I[1][k] = scale * SumOf(s.I1[k]);
        out.I[2][k] = scale * SumOf(s.I2[k]);
        out.I[3][k] = scale * SumOf(s.I3[k]);
    }
}
