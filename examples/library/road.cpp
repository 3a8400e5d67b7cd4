// The road of samples/road.eva: the two strains that a design looks at, in micro.
#include <cstdio>

#include "zirvo/check_problem.h"
#include "zirvo/solve.h"

int main() {
    using namespace zirvo::solver;
    Problem road;
    road.Layers = {{5000, 0.35, 15, 0}, {300, 0.35, 30, 0}, {50, 0.4, 0, 0}};  // MPa, -, cm, slip rate
    road.Loads = {{490, 15, 0, 0, 0, 0}};                                      // 49 kN = 490 MPa cm2, radius 15 cm
    road.Points = {{1, 0, 0, 15}, {3, 0, 0, 45}};  // bottom of the asphalt, top of the subgrade
    for (const ProblemFault& fault : CheckProblem(road)) {
        std::puts(fault.Text().c_str());
        return 1;
    }
    const Solution solution = Solve(road);
    std::printf("EPSx %.2f EPSz %.2f\n", solution.Points[0].Values[EPSx] * 1e6, solution.Points[1].Values[EPSz] * 1e6);
}
