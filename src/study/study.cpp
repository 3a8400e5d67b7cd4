// Rows and names of a study, see study.h.
#include "study/study.h"

#include "solver/io/unit_systems.h"

namespace zirvo::study {
namespace {

std::string WithUnit(const std::string& name, const std::string& unit) {
    return unit.empty() ? name : name + " [" + unit + "]";
}

}  // namespace

void Study::ValuesOf(std::uint64_t row, std::vector<double>& values) const {
    values.resize(Vary.size());
    if (What == Kind::Table) {
        for (std::size_t i = 0; i < Vary.size(); ++i) {
            values[i] = Table->At(row, i);
        }
        return;
    }
    if (What == Kind::Sample) {
        for (std::size_t i = 0; i < Vary.size(); ++i) {
            values[i] = Vary[i].Draw.At(EvenNumber(Seed, row, i));
        }
        return;
    }
    for (std::size_t i = Vary.size(); i-- > 0;) {  // the last one runs fastest
        const std::uint64_t count = Vary[i].Values.size();
        values[i] = Vary[i].Values[row % count];
        row /= count;
    }
}

std::string Study::LabelOf(const Varied& varied) const {
    return WithUnit(varied.What.Name, UnitOf(varied.What, Units));
}

std::string Study::LabelOf(const Kept& kept) const {
    if (kept.What == Kept::Kind::ShortestLife) {
        return WithUnit(kept.Name, "repetitions");
    }
    if (kept.Component <= solver::W) {
        return WithUnit(kept.Name, "cm");
    }
    return WithUnit(kept.Name,
                    kept.Component <= solver::TAUzx ? std::string(solver::OutputStressUnit(Units)) : "micro");
}

}  // namespace zirvo::study
