// The field of one wavenumber in all layers at once: one banded system of equations, solved with partial pivoting.
// Another formulation than the solver's, which goes up and down layer by layer.
#pragma once
#include <array>
#include <vector>

#include "solver/problem.h"
#include "two_part.h"

namespace zirvo::attack {

using WaveMatrix = std::array<std::array<Two, 4>, 4>;

/// y' = B y of the state (u, w, T, S) in a material, N = B^2 - 1 and B N.
struct ElasticMatrices {
    WaveMatrix B, N, BN;

    explicit ElasticMatrices(Two nu);
};

/// Layers in two-part numbers; the last thickness is 0.
struct ReferenceLayers {
    std::vector<Two> M2;  ///< E / (1 + nu)
    std::vector<Two> Nu;
    std::vector<Two> H;             ///< cm
    std::vector<Two> Spring;        ///< AK of the interface below over the radius of the load
    std::vector<Two> Top;           ///< cm
    std::vector<double> SolverTop;  ///< the same as a sum of doubles, which is where an interface is told to lie
    std::vector<ElasticMatrices> Matrices;

    explicit ReferenceLayers(const solver::Problem& problem);
    std::size_t Count() const { return M2.size(); }
};

/// u, w, v: displacements times the wavenumber; T, S, Q: tractions over m2 of the layer.
struct WaveValues {
    Two U, W, V, T, S, Q;
};

class WaveField {
public:
    /// @param radius  of the load, for the springs; @param shear  whether that is wanted beside pressure
    WaveField(const ReferenceLayers& layers, Two radius, Two xi, bool shear);

    /// The fields of a unit surface pressure and of a unit shear. @param layer  0-based; @param z  depth [cm]
    /// @param ownShare  false: layer 1's own half-space is taken away, for depths in layer 1
    std::array<WaveValues, 2> At(std::size_t layer, double z, bool ownShare) const;

private:
    /// Coefficients of a layer's field: 4 of (u, w, T, S), 2 of (v, Q).
    struct Coefficients {
        std::array<Two, 4> Plane;
        std::array<Two, 2> Turned;
    };

    bool Thin(std::size_t layer) const;
    /// Exponentials of the modes that decay downwards and upwards, or nothing where the layer is thin.
    struct Decay {
        Two Zeta, Eta, Down, Up;
    };
    Decay DecayAt(std::size_t layer, Two fromTop) const;
    Decay DecayAtTop(std::size_t layer) const;
    Decay DecayAtBottom(std::size_t layer) const;
    WaveMatrix PlaneAt(std::size_t layer, const Decay& d) const;
    std::array<std::array<Two, 2>, 2> TurnedAt(std::size_t layer, const Decay& d) const;
    Two FromTop(std::size_t layer, double z) const;
    void TakeOwnShare(bool pressure, Two z, WaveValues& f) const;
    void SolvePlane();
    void SolveTurned();

    const ReferenceLayers& layers_;
    Two radius_, xi_;
    bool shear_;
    std::vector<Two> through_;                         // exp(-q) of the thick layers
    std::array<std::vector<Coefficients>, 2> fields_;  // of pressure, of shear
};

/// exp(B q) of the state (u, w, T, S) in a layer, for q <= 2; public for the reference's own check.
WaveMatrix Transfer(const ElasticMatrices& of, Two q);

}  // namespace zirvo::attack
