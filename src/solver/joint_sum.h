// All loads of one place (X, Y) in one sum over wavenumbers, in numbers of two parts: for loads that cancel. Opposite
// loads close together on layers that are far apart in modulus move a plate, each alone, ten and more digits further
// than both together; their sums made apart have lost those digits before they meet. Here their Bessel functions are
// added up at each wavenumber, before a kernel multiplies them, and only what is left is rounded. Dear: chunk_work asks
// for the few points whose bounds are not good enough otherwise.
#pragma once
#include <array>
#include <vector>

#include "solver/depth_plan.h"
#include "solver/engine.h"
#include "solver/prepared_problem.h"
#include "solver/problem.h"
#include "solver/superposition.h"
#include "solver/two_part.h"
#include "solver/wavenumbers.h"

namespace zirvo::solver {

class JointSum {
public:
    /// @param sources  depths of one chunk, by layer, then depth
    JointSum(const Problem& problem, const LayerTable& layers, const Engine& engine, const LoadScale& scale, double x,
             double y, const std::vector<SourceDepth>& sources);

    /// About how many nanoseconds Run takes.
    double Cost() const;

    /// The layers' share of the values at each source with its errors; the half-space share of layer 1 left out.
    std::vector<PointSums> Run();

private:
    /// The nine values that loads add up to.
    enum Total : std::size_t { AtU, AtV, AtW, AtNormal, AtShearX, AtShearY, AtArea, AtDifference, AtShear, Totals };

    /// One load as the place sees it: forces times functions of its direction and of the point's angle.
    struct Seen {
        TwoPart R;
        TwoPart Vertical0, Vertical1[2], Vertical2[2];  // pressure times 1, exp(i theta), exp(2 i theta)
        TwoPart Along0[2], Along1, Turned1[2], Turned2[2], Turned3[2];  // shear: see SeenFrom
        bool HasVertical = false, HasHorizontal = false;
    };
    /// Sums of the loads' Bessel functions at one wavenumber; the names are those of Seen.
    struct Factors {
        TwoPart Vertical0, Vertical1[2], Vertical2[2];
        TwoPart Along0[2], Along1, Turned1[2], Turned2[2], Turned3[2];
    };
    /// Loads of one radius: they share kernels where layers slip.
    struct Ring {
        double Radius = 0;
        double Force = 0;  // sizes of all its loads
        int Deepest = 0;
        std::vector<Seen> Loads;
        std::vector<double> High, Low;  // kernels
    };
    struct DepthSum {
        std::array<TwoPart, Totals> Total{};
        std::array<double, Totals> Difference{};
        // By kind (strains, displacements):
        std::array<double, 2> Magnitude{};  // of what is added
        std::array<double, 2> Segment{};    // what rounding may amount to in the segment at hand
        std::array<double, 2> Rounding{};   // squares of the segments before
        std::array<double, 2> Alone{};      // magnitudes of the loads without signs
        std::array<double, 2> Tail{};       // of the last nodes
    };

    Seen SeenFrom(const Load& load, double x, double y) const;
    void AddFactors(const Ring& ring, TwoPart xi, TwoPart weight, Factors& factors) const;
    void MakeKernels(Ring& ring, int nodes);
    void SumBlock(long first, int nodes, const double* weight);
    void AddNode(const Ring& ring, const Factors& factors, int node, std::size_t depth,
                 std::array<TwoPart, Totals>& added) const;
    void AddSizes(const Ring& ring, double factor, int node, bool last, std::size_t depth);
    void CloseSegment();
    bool Ended(double xi) const;
    double Cut(std::size_t depth, std::size_t kind) const;
    double Unit(std::size_t depth, std::size_t kind) const;
    PointSums ResultAt(std::size_t depth) const;

    const LayerTable& layers_;
    const Engine& engine_;
    LoadScale scale_;
    std::vector<SourceDepth> sources_;
    std::vector<KernelDepth> depths_;
    std::vector<Ring> rings_;  // ascending
    bool vertical_ = false, horizontal_ = false;
    NodeRule rule_;
    double expected_ = 0;  // nodes
    double forces_ = 0;
    std::vector<DepthSum> sums_;
    alignas(64) double xi_[NodeBlock] = {};
    alignas(64) double xiLow_[NodeBlock] = {};
};

}  // namespace zirvo::solver
