// The inner loops of the solver, built once for each width of vector register and chosen when the program starts.
// Everything here is plain arrays: the callers (level_sum, half_space) own all memory.
#pragma once
#include <cstddef>

namespace zirvo::solver {

/// The layers as the loops want them, 0-based arrays of `Count`. M2 = E / (1 + nu) = 2 mu. Spring is the compliance of
/// the interface below the layer per unit radius of the load [1 / modulus]: alpha / (1 - alpha) * (1 + nu) / E.
struct LayeredSystem {
    int Count = 0;
    const double* M2 = nullptr;
    const double* Nu = nullptr;
    const double* Thickness = nullptr;
    const double* Spring = nullptr;
    /// What M2 and Spring lost to rounding, for the kernels in two parts.
    const double* M2Low = nullptr;
    const double* SpringLow = nullptr;
};

/// A depth at which kernels are wanted: 0-based layer, distance from its top and to its bottom [cm] (the latter unused
/// in the last layer).
struct KernelDepth {
    int Layer = 0;
    double FromTop = 0;
    double FromBottom = 0;
    double FromTopLow = 0, FromBottomLow = 0;  ///< what they lost to rounding
};

/// Rows of kernels: what is summed, per unit surface traction. Displacements over the wavenumber, strains as they are,
/// tractions over M2 of the layer, so that all but the displacements are like strains. u, w, v: displacements (radial,
/// down, turned) times the wavenumber; T, S, Q: shear, normal, turned shear.
enum Row : int {
    RowVerticalW,    ///< w / xi with J0; vertical load from here
    RowVerticalS,    ///< S with J0
    RowVerticalU0,   ///< u with J0
    RowVerticalU1,   ///< u / xi with J1
    RowVerticalT,    ///< T with J1
    RowVerticalU2,   ///< u with J2
    RowHorizontalW,  ///< w / xi with J1; horizontal load from here
    RowHorizontalS,  ///< S with J1
    RowHorizontalU,  ///< u with J1
    RowSum1,         ///< (u + v) / 2 with J1
    RowSum0,         ///< (u + v) / (2 xi) with J0
    RowShear0,       ///< (T + Q) / 2 with J0
    RowDifference2,  ///< (u - v) / (2 xi) with J2
    RowShear2,       ///< (T - Q) / 2 with J2
    RowDifference3,  ///< (u - v) / 2 with J3
    RowCount
};
inline constexpr int VerticalRows = 6;
inline constexpr int RowOrder[RowCount] = {0, 0, 0, 1, 1, 2, 1, 1, 1, 1, 0, 0, 2, 2, 3};
inline constexpr bool RowIsDisplacement[RowCount] = {true,  false, false, true,  false, false, true, false,
                                                     false, false, true,  false, true,  false, false};

/// Nodes are worked on in blocks of this many (a multiple of every vector width, and even, so that a node's parity in
/// its block is its parity in the whole sum).
inline constexpr int NodeBlock = 256;
/// Radii stand side by side in tiles of this many.
inline constexpr int TileWidth = 8;

/// Taylor coefficients of J0..J3 round the centres 0, 1/4, 1/2 .. 32 and the asymptotic series beyond.
struct BesselTable {
    static constexpr double Limit = 32;
    static constexpr int PerUnit = 4;
    static constexpr int Centres = 32 * PerUnit + 1;
    static constexpr int Terms = 11;
    static constexpr int AsymptoticTerms = 8;
    alignas(64) double Taylor[Centres][Terms][4];
    double P0[AsymptoticTerms], Q0[AsymptoticTerms], P1[AsymptoticTerms], Q1[AsymptoticTerms];
};

/// Interpolation on Chebyshev nodes of the first kind, x_k = cos((k + 1/2) pi / 16) on -1..1.
inline constexpr int ChebyshevCount = 16;

/// What nodes of the sums over wavenumbers are made of (engine_nodes.inl), in two parts: powers 2^(i / 64), i from -32;
/// numbers c of 12 digits near 1 / (1 + i / 64), and -ln c.
struct NodeTable {
    static constexpr int Parts = 64;
    double Power[Parts + 1], PowerLow[Parts + 1];
    double Inverse[Parts + 1], Log[Parts + 1], LogLow[Parts + 1];
};
/// The map of the nodes, wavenumbers.h. C, Start and Step have 24 digits.
struct NodeMap {
    double C, AtLowEnd, Start, Step;    // AtLowEnd: exp(sL)
    double WindowCentre, InverseWidth;  // InverseWidth 0: no window
};

/// Gauss nodes of the angular sums of the half-space: panels halved towards 0. Panel p < MaxPanels covers pi 2^-(p+1)
/// to pi 2^-p; core panel p covers 0 to pi 2^-p.
struct AngleTable {
    static constexpr int MaxPanels = 60;
    static constexpr int Nodes = 16;
    struct Panel {
        alignas(64) double Cos[Nodes], Sin[Nodes], HalfSquared[Nodes], Weight[Nodes];
    };
    Panel Ring[MaxPanels];
    Panel Core[MaxPanels + 1];
};

/// I(n, k) = integral of a J1(xi a) Jn(xi r) exp(-xi z) xi^k, k = -1, 0, 1, n = 0..3.
struct HalfSpaceIntegrals {
    double I[4][3];  ///< [n][k + 1]
};

/// Two for each load (pressure, shear): strains, displacements.
inline constexpr int Kinds = 4;
inline constexpr int RowKind[RowCount] = {1, 0, 0, 1, 0, 0, 3, 2, 2, 2, 3, 2, 3, 2, 2};

/// Nodes that share one measure of magnitude.
inline constexpr int Segment = 32;
/// Nodes over which the end of a sum is judged.
inline constexpr int TailNodes = 4;

/// What weighing says of the sizes of weighted kernels, by kind. Segments of nodes: at least the largest of the rows'
/// sums, [segment * SegmentStride + kind]. Peak is raised; Tail, of the last few nodes, is set.
struct WeighMeasures {
    double* Sums = nullptr;
    int SegmentStride = 0;
    double* Peak = nullptr;
    double* Tail = nullptr;
};

/// Fields of whole layers (engine_fields.inl). Components for vertical loads W, S, U, T; for horizontal ones W, S, U,
/// (U + V) / 2, (T + Q) / 2, (T - Q) / 2; of each four coefficients. Behind them the sizes of each kind's components at
/// each of the four: FieldNumbers for a node, 8 nodes side by side.
inline constexpr int HorizontalFields = 4;
inline constexpr int FieldComponents = 10;
inline constexpr int FieldNumbers = (FieldComponents + Kinds) * 4;
/// How a layer's coefficients are meant at a node: not reached by the field, modes, or values and slopes at
/// both ends.
enum Form : unsigned char { FormNone, FormThick, FormThin };
/// Where the fields of some layers go, and how they are meant.
struct FieldsPlace {
    /// [radius * RadiusStride + slot * SlotStride + ((node / 8) * FieldNumbers + number) * 8 + node % 8]
    double* Numbers = nullptr;
    std::ptrdiff_t RadiusStride = 0, SlotStride = 0;
    unsigned char* Forms = nullptr;  ///< [slot * NodeBlock + node]
};
/// Nodes that pairs are summed over at a time: their fields stay in the nearest cache.
inline constexpr int PairNodes = 64;
/// Numbers per node that tell the four functions of depth in a thin layer.
inline constexpr int ThinNumbers = 8;

/// Radii that fields are made for at most, where those of the loads lie between them.
inline constexpr int MostMixed = 64;
/// Numbers of the components of one of them (see Components).
inline constexpr int ComponentNumbers = (FieldComponents + Kinds) * PairNodes;

/// Some nodes for a sum of one pair of a load and a point, a multiple of 8 and at most PairNodes.
struct PairBlock {
    int Nodes = 0;
    const double* Xi = nullptr;
    const double* XiLow = nullptr;
    const double* InverseXi = nullptr;
    const double* Factor = nullptr;  ///< what a kernel is weighed with
    const double* Size = nullptr;    ///< its size without oscillation
    const double* Fields = nullptr;  ///< of the pair's layer
    const double* Depth = nullptr;   ///< four functions of the pair's depth, NodeBlock apart
    /// In place of both: components for some radii, ComponentNumbers apart, and their weights. Their sizes are mixed of
    /// two neighbours.
    const double* Components = nullptr;
    const double* Weights = nullptr;
    int Mixed = 0;
    /// In place of the Bessel functions, where they are not wanted whole: [order * PairNodes + node].
    const double* Slow = nullptr;
    int SizeFirst = 0;
    double SizeShare = 0;           ///< of the second
    const double* Doubt = nullptr;  ///< [segment * DoubtStride + kind]: share of kernels that is rounding
    int DoubtStride = 0;
    const double* SegmentRounding = nullptr;  ///< what a sum of ones may be off in each segment
    const double* SegmentEnvelope = nullptr;  ///< 0.9 / sqrt of each segment's least wavenumber
};

/// The sums of a pair: even and odd nodes in even and odd places, and their measures by kind. Squares are summed over
/// segments; Peak is the largest mean of a segment; Tail is of the last few nodes.
struct PairSums {
    alignas(64) double Rows[RowCount][8];
    double Magnitude[Kinds], Kernel2[Kinds], Sum2[Kinds], Peak[Kinds], Tail[Kinds];
};

/// Rows are padded to this many where they stand side by side: of vertical loads alone, and of both.
inline constexpr int VerticalStride = 8;
inline constexpr int RowStride = 16;

struct Engine {
    const char* Name;

    /// Kernels of a block of wavenumbers at some depths, times Weight. `rows` tells which of the two loads is wanted.
    /// out[(depth * RowCount + row) * NodeBlock + node]. In layer 1 the half-space share of that layer's material is
    /// left out. `deepest` is the 0-based deepest layer that the field still reaches (start with Count - 1); it is
    /// lowered as the wavenumbers grow, and deeper depths give 0.
    void (*Kernels)(const LayeredSystem& system, double radius, const double* xi, int nodes, const KernelDepth* depths,
                    int depthCount, bool vertical, bool horizontal, int& deepest, double* out);

    /// The same in numbers of two parts, wavenumbers too, rounded to a double at the end: for pavements whose kernels
    /// lose digits, and to tell how many. What rounding takes goes to `low`, of the same size, where that is not null.
    void (*PreciseKernels)(const LayeredSystem& system, double radius, const double* xi, const double* xiLow, int nodes,
                           const KernelDepth* depths, int depthCount, bool vertical, bool horizontal, int& deepest,
                           double* out, double* low);

    /// Nodes first .. first + count - 1 (a multiple of 8) in two parts, with their weights.
    void (*Nodes)(const NodeTable& table, const NodeMap& map, double first, int count, double* xi, double* xiLow,
                  double* weight);

    /// Fields of the layers that have a slot (slots[layer] >= 0, up to layer deepestWanted) at a block of wavenumbers,
    /// for loads of some radii.
    void (*Fields)(const LayeredSystem& system, const double* radii, int radiusCount, const double* xi, int nodes,
                   const int* slots, int deepestWanted, bool vertical, bool horizontal, int& deepest,
                   const FieldsPlace& out);

    /// The same, made in numbers of two parts and rounded at the end.
    void (*PreciseFields)(const LayeredSystem& system, const double* radii, int radiusCount, const double* xi,
                          const double* xiLow, int nodes, const int* slots, int deepestWanted, bool vertical,
                          bool horizontal, int& deepest, const FieldsPlace& out);

    /// For a thickness: out[number * NodeBlock + node], for DepthFunctions. Nodes at which it is not thin are left out.
    void (*ThinFunctions)(double thickness, const double* xi, int nodes, double* out);

    /// The four functions of a depth by which the fields of its layer are to be multiplied: out[j * NodeBlock + node].
    /// @param thin  what ThinFunctions gave for the layer
    void (*DepthFunctions)(const KernelDepth& depth, bool lastLayer, const double* xi, int nodes,
                           const unsigned char* forms, const double* thin, double* out);

    /// Adds some nodes to the sums of a pair r apart.
    void (*AddToPair)(const BesselTable& table, const PairBlock& block, double r, bool vertical, bool horizontal,
                      PairSums& sums);

    /// Components at a depth, for pairs whose radius lies between those that fields were made for:
    /// out[number * PairNodes + node], FieldComponents of them and the sizes of the kinds.
    /// @param fields, depth  as of a PairBlock
    void (*Components)(const double* fields, const double* depth, int nodes, bool vertical, bool horizontal,
                       double* out);

    /// What interpolation between the radii misses of the components, as a share of their sizes: the largest of each
    /// segment and kind, shares[segment * Kinds + kind].
    /// @param tails  rows that give the two highest Chebyshev coefficients, MostMixed apart
    void (*MissedByMixing)(const double* components, const double* tails, int count, int nodes, bool vertical,
                           bool horizontal, double* shares);

    /// The same as AddToPair, with the block's Components.
    void (*AddMixedToPair)(const BesselTable& table, const PairBlock& block, double r, bool vertical, bool horizontal,
                           PairSums& sums);

    /// out[node] = sum over i of weights[i] * from[i * stride + node].
    void (*Mix)(const double* from, std::ptrdiff_t stride, const double* weights, int count, int nodes, double* out);

    /// out = raw * factor for the rows of one depth (out may be raw). The measures are of |raw| * size, each of the
    /// kinds that the rows have (see WeighMeasures).
    void (*Weigh)(const double* raw, const double* factor, const double* size, int nodes, int firstRow, int lastRow,
                  double* out, const WeighMeasures& measures);

    /// J0..J3 of (xi + xiLow) * r: out[order][(tile * NodeBlock + node) * TileWidth + lane]; null orders are left out.
    void (*Bessel)(const BesselTable& table, const double* xi, const double* xiLow, int nodes, const double* radii,
                   int tiles, double* const out[4]);

    /// total[(row * depthCount + depth) * columns + column] += sum over nodes of kernel * Bessel, difference the same
    /// with even nodes positive and odd ones negative; columns = tiles * TileWidth, tiles counted from firstTile of the
    /// Bessel rows.
    void (*Accumulate)(const double* kernels, int depthCount, int nodes, const double* const bessel[4], int firstTile,
                       int tiles, int firstRow, int lastRow, double* total, double* difference);

    /// rows[stride] += sum over columns of weight * block[column][stride]; an even number of columns, or one.
    /// @param stride  VerticalStride or RowStride
    void (*Interpolate)(const double* block, const double* weights, int columns, int stride, double* rows);

    /// Weights of the interpolating polynomial through `ChebyshevCount` values at x, -1 <= x <= 1: barycentric form.
    /// @param nodes, lambda  of the table's nodes
    void (*ChebyshevWeights)(const double* nodes, const double* lambda, double x, double* weights);

    /// The twelve integrals of a circle of radius a at the distance `gap` outside its edge (inside: negative, -a on the
    /// axis) and depth z; z > 0 or gap != 0.
    void (*HalfSpace)(const AngleTable& table, double a, double gap, double z, HalfSpaceIntegrals& out);
};

/// The widest engine that this machine can run. All give the same answers to rounding.
const Engine& BestEngine();

/// Every engine that this machine can run, for tests and benchmarks.
int RunnableEngines(const Engine* out[4]);

}  // namespace zirvo::solver
