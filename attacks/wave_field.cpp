// Notation as in docs/theory.md: q = xi h, zeta = xi times the distance from the layer's top, eta from its bottom. A
// layer's field is, where it is thick, the four decaying modes with coefficients of their own; where it is thin the
// modes nearly coincide, and the coefficients are the state at its top, carried by exp(B zeta).
#include "wave_field.h"

#include "band_system.h"

namespace zirvo::attack {

namespace {

constexpr double ThinLimit = 0.5;

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
    const Two q2 = q * q;
    ch = 1;
    sh = q;
    third = 0;
    Two even = 1;
    Two odd = q;
    for (int k = 1; k <= 13; ++k) {
        even = even * q2 / Two((2 * k - 1) * (2 * k));
        odd = odd * q2 / Two((2 * k) * (2 * k + 1));
        ch += even;
        sh += odd;
        third += odd * Two(2 * k);  // q^(2k+1) (1 / (2k)! - 1 / (2k+1)!)
    }
}

}  // namespace

ReferenceLayers::ReferenceLayers(const solver::Problem& problem) {
    Two top;
    for (std::size_t i = 0; i < problem.Layers.size(); ++i) {
        const solver::Layer& layer = problem.Layers[i];
        const bool last = i + 1 == problem.Layers.size();
        M2.push_back(Two(layer.Modulus) / (Two(1) + Two(layer.PoissonRatio)));
        Nu.emplace_back(layer.PoissonRatio);
        H.emplace_back(last ? 0 : layer.Thickness);
        const Two slip = last ? 0 : layer.SlipRate;
        Spring.push_back(slip / (Two(1) - slip) / M2.back());
        Top.push_back(top);
        top += H.back();
    }
}

std::array<std::array<Two, 4>, 4> Transfer(Two nu, Two q) {
    // exp(B q) = ch + sh B + (q sh / 2) N + ((q ch - sh) / 2) B N with N = B^2 - 1, N^2 = 0.
    Two ch;
    Two sh;
    Two third;
    Hyperbolics(q, ch, sh, third);
    const Two d = Two(1) / (Two(1) - nu);
    const Two k = (Two(1) - nu - nu) * d;
    const Two b[4][4] = {{0, -1, 2, 0}, {nu * d, 0, 0, k}, {d, 0, 0, -(nu * d)}, {0, 0, 1, 0}};
    Two n[4][4];
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            for (int m = 0; m < 4; ++m) {
                n[i][j] += b[i][m] * b[m][j];
            }
            if (i == j) {
                n[i][j] -= 1;
            }
        }
    }
    std::array<std::array<Two, 4>, 4> out;
    const Two second = q * sh * Two(0.5);
    const Two fourth = third * Two(0.5);
    for (std::size_t i = 0; i < 4; ++i) {
        for (std::size_t j = 0; j < 4; ++j) {
            Two bn;
            for (std::size_t m = 0; m < 4; ++m) {
                bn += b[i][m] * n[m][j];
            }
            out[i][j] = sh * b[i][j] + second * n[i][j] + fourth * bn;
        }
        out[i][i] += ch;
    }
    return out;
}

WaveField::WaveField(const ReferenceLayers& layers, Two radius, Two xi) : layers_(layers), radius_(radius), xi_(xi) {
    for (auto& field : fields_) {
        field.resize(layers.Count());
    }
    for (std::size_t i = 0; i < layers.Count(); ++i) {
        const bool last = i + 1 == layers.Count();
        through_.push_back(last || Thin(i) ? Two(0) : Exponential(-(xi * layers.H[i])));
    }
    SolvePlane();
    SolveTurned();
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
WaveField::Matrix WaveField::PlaneAt(std::size_t layer, const Decay& d) const {
    const Two nu = layers_.Nu[layer];
    if (Thin(layer)) {
        return Transfer(nu, d.Zeta);
    }
    const Two k1 = Two(2) - nu - nu;
    const Two k2 = Two(1) - nu - nu;
    Matrix m;
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
    BandSystem system(size, 5, 5, 2);
    const Matrix surface = PlaneAt(0, DecayAtTop(0));
    const std::size_t firstWidth = count == 1 ? 2 : 4;
    for (std::size_t c = 0; c < firstWidth; ++c) {
        system.At(0, c) = surface[2][c];
        system.At(1, c) = surface[3][c];
    }
    system.Side(1, 0) = Two(-1) / layers_.M2[0];
    system.Side(0, 1) = Two(-1) / layers_.M2[0];
    for (std::size_t i = 0; i + 1 < count; ++i) {
        const Matrix above = PlaneAt(i, DecayAtBottom(i));
        const Matrix below = PlaneAt(i + 1, DecayAtTop(i + 1));
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
        fields_[1][i / 4].Plane[i % 4] = system.Side(i, 1);
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

WaveValues WaveField::At(UnitLoad load, std::size_t layer, Two z, bool ownShare) const {
    const Coefficients& c = fields_[load == UnitLoad::Pressure ? 0 : 1][layer];
    const Two fromTop = z - layers_.Top[layer];
    const Decay d = DecayAt(layer, fromTop);
    const Matrix m = PlaneAt(layer, d);
    const auto t = TurnedAt(layer, d);
    Two state[4];
    for (std::size_t row = 0; row < 4; ++row) {
        for (std::size_t i = 0; i < 4; ++i) {
            state[row] += m[row][i] * c.Plane[i];
        }
    }
    WaveValues f{state[0], state[1], t[0][0] * c.Turned[0] + t[0][1] * c.Turned[1],
                 state[2], state[3], t[1][0] * c.Turned[0] + t[1][1] * c.Turned[1]};
    if (!ownShare) {
        const Two nu = layers_.Nu[0];
        const Two zeta = xi_ * z;
        const Two unit = Exponential(-zeta) / layers_.M2[0];
        const Two a1 = load == UnitLoad::Pressure ? -unit : Two(0);
        const Two a2 = -unit;
        f.U -= a1 + a2 * (zeta - Two(2) + nu + nu);
        f.W += a1 + a2 * (zeta + Two(1) - nu - nu);
        f.T -= a2 * (Two(1) - zeta) - a1;
        f.S -= a1 + a2 * zeta;
        if (load == UnitLoad::Shear) {
            f.V -= unit + unit;
            f.Q += unit;
        }
    }
    return f;
}

}  // namespace zirvo::attack
