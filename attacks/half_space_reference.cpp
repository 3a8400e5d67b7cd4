// The angular sums of Graf's theorem (see the solver's half-space) with another quadrature: psi = delta sinh t, delta
// the sharpness at psi = 0, in equal Gauss panels of t.
#include "half_space_reference.h"

#include "gauss_nodes.h"

namespace zirvo::attack {

namespace {

struct Place {
    Two A, R, Z;
};

void AddAngle(const Place& p, Two psi, Two weight, ReferenceIntegrals& out) {
    Two sine;
    Two cosine;
    SineCosine(psi * Two(0.5), sine, cosine);
    const Two half = sine * sine;
    const Two gap = p.R - p.A;
    const Two l2 = gap * gap + Two(4) * p.A * p.R * half;
    const Two rho = SquareRoot(l2 + p.Z * p.Z);
    const Two s = Two(2) * sine * cosine;
    const Two c = Two(1) - half - half;
    const Two inverse = Two(1) / (rho + p.Z);
    const Two ex = gap + Two(2) * p.A * half;
    const Two ey = -(p.A * s);
    const Two toAxis = (p.R * half * Two(2) - gap) * inverse;  // (a - r cos psi) / L * q
    // Powers of q exp(i chi), turned by psi.
    const Two qx = ex * inverse;
    const Two qy = ey * inverse;
    const Two c1 = c * qx - s * qy;
    const Two c2 = c * (qx * qx - qy * qy) - s * Two(2) * qx * qy;
    const Two r1 = Two(1) / rho;
    const Two r3 = r1 * r1 * r1;
    out.I[0][0] += weight * toAxis;
    out.I[0][1] += weight * toAxis * r1;
    out.I[0][2] += weight * toAxis * (p.Z + rho) * r3;
    out.I[1][0] += weight * p.A * p.R * s * s * r1 * inverse;
    out.I[1][1] += weight * c * r1;
    out.I[1][2] += weight * c * p.Z * r3;
    out.I[2][0] += weight * c1;
    out.I[2][1] += weight * c1 * r1;
    out.I[2][2] += weight * c1 * (p.Z + rho) * r3;
    out.I[3][0] += weight * c2 * Two(0.5);
    out.I[3][1] += weight * c2 * r1;
    out.I[3][2] += weight * c2 * (p.Z + rho + rho) * r3;
}

}  // namespace

ReferenceIntegrals HalfSpaceIntegrals(Two a, Two r, Two z) {
    ReferenceIntegrals out;
    const Place place{a, r, z};
    const double gap = (r - a).Hi;
    const double sharp = std::hypot(gap, z.Hi) / std::sqrt(a.Hi * std::fmax(r.Hi, 1e-9 * a.Hi));
    const double delta = std::fmin(1.0, sharp);
    const double end = std::asinh(Pi.Hi / delta);
    const int panels = static_cast<int>(end / 0.8) + 1;
    // The last angle is pi to all digits: psi is scaled to end there.
    const Two step = Two(end) / Two(panels);
    const Two grown = Exponential(Two(end));
    const Two scale = Two(2) * Pi / (grown - Two(1) / grown);
    for (int i = 0; i < panels; ++i) {
        for (std::size_t k = 0; k < GaussCount; ++k) {
            const Two t = (Two(i) + Gauss().X[k]) * step;
            const Two e = Exponential(t);
            const Two inverse = Two(1) / e;
            const Two sinh = (e - inverse) * Two(0.5);
            const Two cosh = (e + inverse) * Two(0.5);
            // For small t the difference of exponentials loses digits that the panels near zero do not need: psi is
            // good to its last bits beside delta.
            AddAngle(place, scale * sinh, Gauss().Weight[k] * step * scale * cosh, out);
        }
    }
    const Two factor = a / Pi;
    for (auto& row : out.I) {
        for (Two& value : row) {
            value *= factor;
        }
    }
    if (z.Hi == 0) {
        const bool inside = gap < 0;
        out.I[0][1] = inside ? 1 : 0;
        out.I[2][1] = inside ? Two(0) : a * a / (r * r);
    }
    return out;
}

}  // namespace zirvo::attack
