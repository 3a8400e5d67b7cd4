// Notation as in docs/theory.md: q = xi h, zeta = xi times the distance from the layer's top, eta from its bottom. A
// layer's field is, where it is thick, the four decaying modes with coefficients of their own; where it is thin the
// modes nearly coincide, and the coefficients are the state at its top, carried by exp(B zeta).
#include "wave_field.h"

#include "band_system.h"

namespace zirvo::attack {

namespace {

constexpr double ThinLimit = 0.5;
constexpr int MostTerms = 13;

/// Sums of the series of cosh q, sinh q, q cosh q - sinh q for small q; by exponentials else.
void Hyperbolics(Two q, Two& ch, Two& sh, Two& third) {
    if (q.Hi > 0.5) {
        const Two e = Exponential(q);
        const Two inverse = Two(1) / e;
        ch = (e + inverse) * Two(0.5);
        sh = (e - inverse) * Two(0.5);
        third = q * ch - sh;
        return;
    }
    // As many terms as q needs: q^(2 k) / (2 k)! below 1E-33.
    int terms = 1;
    for (double size = q.Hi * q.Hi / 2; size > 1e-33 && terms < MostTerms; ++terms) {
        size *= q.Hi * q.Hi / ((2 * terms + 1) * (2 * terms + 2));
    }
    const Two q2 = q * q;
    ch = 0;
    sh = 0;
    third = 0;
    for (int k = terms; k >= 0; --k) {
        const Two odd = InverseFactorial(2 * k + 1);
        ch = ch * q2 + InverseFactorial(2 * k);
        sh = sh * q2 + odd;
        third = third * q2 + odd * Two(2 * k);  // q^(2k+1) (1 / (2k)! - 1 / (2k+1)!)
    }
    sh *= q;
    third *= q;
}

}  // namespace

ReferenceLayers::ReferenceLayers(const solver::Problem& problem) {
    Two top;
    double solverTop = 0;
    for (std::size_t i = 0; i < problem.Layers.size(); ++i) {
        const solver::Layer& layer = problem.Layers[i];
        const bool last = i + 1 == problem.Layers.size();
        M2.push_back(Two(layer.Modulus) / (Two(1) + Two(layer.PoissonRatio)));
        Nu.emplace_back(layer.PoissonRatio);
        Matrices.emplace_back(Nu.back());
        H.emplace_back(last ? 0 : layer.Thickness);
        const Two slip = last ? 0 : layer.SlipRate;
        Spring.push_back(slip / (Two(1) - slip) / M2.back());
        Top.push_back(top);
        SolverTop.push_back(solverTop);
        top += H.back();
        solverTop += H.back().Hi;
    }
}

ElasticMatrices::ElasticMatrices(Two nu) {
    const Two d = Two(1) / (Two(1) - nu);
    const Two k = (Two(1) - nu - nu) * d;
    B = {{{0, -1, 2, 0}, {nu * d, 0, 0, k}, {d, 0, 0, -(nu * d)}, {0, 0, 1, 0}}};
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            for (std::size_t m = 0; m < 4; ++m) {
                N[i][j] += B[i][m] * B[m][j];
            }
        }
        N[i][i] -= 1;
    }
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            for (std::size_t m = 0; m < 4; ++m) {
                BN[i][j] += B[i][m] * N[m][j];
            }
        }
    }
}

WaveMatrix Transfer(const ElasticMatrices& of, Two q) {
    // exp(B q) = ch + sh B + (q sh / 2) N + ((q ch - sh) / 2) B N with N = B^2 - 1, N^2 = 0.
    WaveMatrix out;
    Two ch = 1;
    if (q.Hi != 0) {
        Two sh;
        Two third;
        Hyperbolics(q, ch, sh, third);
        const Two second = q * sh * Two(0.5);
        const Two fourth = third * Two(0.5);
        for (std::size_t i = 0; i < 4; ++i) {
            for (std::size_t j = 0; j < 4; ++j) {
                out[i][j] = sh * of.B[i][j] + second * of.N[i][j] + fourth * of.BN[i][j];
            }
        }
    }
    for (std::size_t i = 0; i < 4; ++i) {
        out[i][i] += ch;
    }
    return out;
}

WaveField::WaveField(const ReferenceLayers& layers, Two radius, Two xi, bool shear)
    : layers_(layers), radius_(radius), xi_(xi), shear_(shear) {
    for (auto& field : fields_) {
        field.resize(layers.Count());
    }
    for (std::size_t i = 0; i < layers.Count(); ++i) {
        const bool last = i + 1 == layers.Count();
        through_.push_back(last || Thin(i) ? Two(0) : Exponential(-(xi * layers.H[i])));
    }
    SolvePlane();
    if (shear_) {
        SolveTurned();
    }
}

bool WaveField::Thin(std::size_t layer) const {
    return layer + 1 < layers_.Count() && (xi_ * layers_.H[layer]).Hi < ThinLimit;
}

WaveField::Decay WaveField::DecayAt(std::size_t layer, Two fromTop) const {
    Decay d{xi_ * fromTop, xi_ * (layers_.H[layer] - fromTop), 0, 0};
    if (!Thin(layer)) {
        d.Down = Exponential(-d.Zeta);
        d.Up = layer + 1 < layers_.Count() ? Exponential(-d.Eta) : Two(0);
    }
    return d;
}

WaveField::Decay WaveField::DecayAtTop(std::size_t layer) const {
    return {0, xi_ * layers_.H[layer], 1, through_[layer]};
}

WaveField::Decay WaveField::DecayAtBottom(std::size_t layer) const {
    return {xi_ * layers_.H[layer], 0, through_[layer], 1};
}

/// (u, w, T, S) of the layer's four coefficients.
WaveMatrix WaveField::PlaneAt(std::size_t layer, const Decay& d) const {
    const Two nu = layers_.Nu[layer];
    if (Thin(layer)) {
        return Transfer(layers_.Matrices[layer], d.Zeta);
    }
    const Two k1 = Two(2) - nu - nu;
    const Two k2 = Two(1) - nu - nu;
    WaveMatrix m;
    m[0] = {d.Down, d.Down * (d.Zeta - k1), d.Up, d.Up * (d.Eta - k1)};
    m[1] = {-d.Down, -(d.Down * (d.Zeta + k2)), d.Up, d.Up * (d.Eta + k2)};
    m[2] = {-d.Down, d.Down * (Two(1) - d.Zeta), d.Up, d.Up * (d.Eta - Two(1))};
    m[3] = {d.Down, d.Down * d.Zeta, d.Up, d.Up * d.Eta};
    return m;
}

/// (v, Q) of the layer's two coefficients.
std::array<std::array<Two, 2>, 2> WaveField::TurnedAt(std::size_t layer, const Decay& d) const {
    const Two half = 0.5;
    if (Thin(layer)) {
        Two ch;
        Two sh;
        Two third;
        Hyperbolics(d.Zeta, ch, sh, third);
        return {{{ch, sh + sh}, {sh * half, ch}}};  // Q over m2 = 2 mu
    }
    return {{{d.Down, d.Up}, {-(d.Down * half), d.Up * half}}};
}

void WaveField::SolvePlane() {
    const std::size_t count = layers_.Count();
    const std::size_t size = 4 * count - 2;
    BandSystem system(size, 5, 5, shear_ ? 2 : 1);
    const WaveMatrix surface = PlaneAt(0, DecayAtTop(0));
    const std::size_t firstWidth = count == 1 ? 2 : 4;
    for (std::size_t c = 0; c < firstWidth; ++c) {
        system.At(0, c) = surface[2][c];
        system.At(1, c) = surface[3][c];
    }
    system.Side(1, 0) = Two(-1) / layers_.M2[0];
    if (shear_) {
        system.Side(0, 1) = Two(-1) / layers_.M2[0];
    }
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const WaveMatrix above = PlaneAt(i, DecayAtBottom(i));
        const WaveMatrix below = PlaneAt(i + 1, DecayAtTop(i + 1));
        const Two spring = layers_.Spring[i] * radius_ * xi_ * layers_.M2[i];
        const Two ratio = layers_.M2[i] / layers_.M2[i + 1];
        const std::size_t width = i + 2 == count ? 2 : 4;
        for (std::size_t row = 0; row < 4; ++row) {
            for (std::size_t c = 0; c < 4; ++c) {
                Two value = above[row][c];
                if (row == 0) {
                    value += spring * above[2][c];
                } else if (row >= 2) {
                    value *= ratio;
                }
                system.At(2 + 4 * i + row, 4 * i + c) = value;
            }
            for (std::size_t c = 0; c < width; ++c) {
                system.At(2 + 4 * i + row, 4 * (i + 1) + c) = -below[row][c];
            }
        }
    }
    system.Solve();
    for (std::size_t i = 0; i < size; ++i) {
        fields_[0][i / 4].Plane[i % 4] = system.Side(i, 0);
        if (shear_) {
            fields_[1][i / 4].Plane[i % 4] = system.Side(i, 1);
        }
    }
}

void WaveField::SolveTurned() {
    const std::size_t count = layers_.Count();
    const std::size_t size = 2 * count - 1;
    BandSystem system(size, 2, 2, 1);
    const auto surface = TurnedAt(0, DecayAtTop(0));
    for (std::size_t c = 0; c < (count == 1 ? 1U : 2U); ++c) {
        system.At(0, c) = surface[1][c];
    }
    system.Side(0, 0) = Two(-1) / layers_.M2[0];
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const auto above = TurnedAt(i, DecayAtBottom(i));
        const auto below = TurnedAt(i + 1, DecayAtTop(i + 1));
        const Two spring = layers_.Spring[i] * radius_ * xi_ * layers_.M2[i];
        const Two ratio = layers_.M2[i] / layers_.M2[i + 1];
        for (std::size_t c = 0; c < 2; ++c) {
            system.At(1 + 2 * i, 2 * i + c) = above[0][c] + spring * above[1][c];
            system.At(2 + 2 * i, 2 * i + c) = ratio * above[1][c];
            if (c == 0 || i + 2 < count) {
                system.At(1 + 2 * i, 2 * i + 2 + c) = -below[0][c];
                system.At(2 + 2 * i, 2 * i + 2 + c) = -below[1][c];
            }
        }
    }
    system.Solve();
    for (std::size_t i = 0; i < size; ++i) {
        fields_[1][i / 2].Turned[i % 2] = system.Side(i, 0);
    }
}

Two WaveField::FromTop(std::size_t layer, double z) const {
    // A depth that is the sum of the thicknesses above, added as doubles from the top, is the interface.
    if (z == layers_.SolverTop[layer]) {
        return 0;
    }
    if (layer + 1 < layers_.Count() && z == layers_.SolverTop[layer + 1]) {
        return layers_.H[layer];
    }
    return Two(z) - layers_.Top[layer];
}

/// Takes layer 1's own half-space away.
void WaveField::TakeOwnShare(bool pressure, Two z, WaveValues& f) const {
    const Two nu = layers_.Nu[0];
    const Two zeta = xi_ * z;
    const Two unit = Exponential(-zeta) / layers_.M2[0];
    const Two a1 = pressure ? -unit : Two(0);
    const Two a2 = -unit;
    f.U -= a1 + a2 * (zeta - Two(2) + nu + nu);
    f.W += a1 + a2 * (zeta + Two(1) - nu - nu);
    f.T -= a2 * (Two(1) - zeta) - a1;
    f.S -= a1 + a2 * zeta;
    if (!pressure) {
        f.V -= unit + unit;
        f.Q += unit;
    }
}

std::array<WaveValues, 2> WaveField::At(std::size_t layer, double z, bool ownShare) const {
    const Decay d = DecayAt(layer, FromTop(layer, z));
    const WaveMatrix m = PlaneAt(layer, d);
    std::array<WaveValues, 2> out;
    for (std::size_t load = 0; load < (shear_ ? 2U : 1U); ++load) {
        const Coefficients& c = fields_[load][layer];
        Two state[4];
        for (std::size_t row = 0; row < 4; ++row) {
            for (std::size_t i = 0; i < 4; ++i) {
                state[row] += m[row][i] * c.Plane[i];
            }
        }
        WaveValues& f = out[load];
        f = {state[0], state[1], 0, state[2], state[3], 0};
        if (load == 1) {
            const auto t = TurnedAt(layer, d);
            f.V = t[0][0] * c.Turned[0] + t[0][1] * c.Turned[1];
            f.Q = t[1][0] * c.Turned[0] + t[1][1] * c.Turned[1];
        }
        if (!ownShare) {
            TakeOwnShare(load == 0, z, f);
        }
    }
    return out;
}

}  // namespace zirvo::attack
