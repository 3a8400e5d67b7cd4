// `zirvo-batch lives`, see lives_command.h.
#include "batch/lives_command.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/decimal15.h"
#include "batch/input_file.h"
#include "batch/result_rows.h"
#include "platform/files.h"
#include "solver/io/solver_input.h"
#include "solver/solve.h"

namespace zirvo::batch {
namespace {

using design::ShortestText;

ExitCode PrintFunctions(Console& console) {
    std::string out;
    for (const design::TransferFunction& function : design::TransferFunctions()) {
        out.append(function.Name)
            .append(function.Kind == design::LifeKind::Fatigue ? ": fatigue\n    " : ": rutting\n    ");
        out.append(function.Source).append("\n");
    }
    return console.Output(out.append("\n").append(design::FunctionCaution).append("\n"));
}

class LivesWork {
public:
    LivesWork(const LivesRequest& request, Console& console) : request_(request), console_(console) {}

    ExitCode Run() {
        if (!ReadPavement() || !ReadAxles() || !SolveAll()) {
            return ExitCode::BadInput;
        }
        const ExitCode code = Write(Rows());
        if (code == ExitCode::Done) {
            TellNotes();
        }
        return code;
    }

private:
    const LivesRequest& request_;
    Console& console_;
    solver::Problem typed_;
    int moved_ = 0;     // points that lay just outside their layer
    double total_ = 0;  // of the vertical loads, as typed
    std::vector<design::AxleLoad> axles_;
    std::vector<std::vector<solver::PointResult>> results_;  // by axle load

    bool Refuse(const solver::InputError& error) {
        console_.Complain("", solver::OneLine(solver::Language::English, request_.File, error));
        return false;
    }

    bool ReadPavement() {
        std::ifstream file;
        if (const solver::InputError error = OpenInputFile(request_.File, file); error.Reason != solver::Word::None) {
            return Refuse(error);
        }
        auto read = solver::ReadSolverInput(file);
        if (const auto* error = std::get_if<solver::InputError>(&read)) {
            return Refuse(*error);
        }
        moved_ = std::get<solver::SolverInput>(read).MovedPoints;
        typed_ = std::move(std::get<solver::SolverInput>(read).Typed);
        for (const LifeAtPoints& life : request_.Lives) {
            for (const int point : life.Points) {
                if (static_cast<std::size_t>(point) > typed_.Points.size()) {
                    console_.Complain(request_.File, "there is no point " + std::to_string(point) + ": there are " +
                                                         std::to_string(typed_.Points.size()));
                    return false;
                }
            }
        }
        for (const solver::Load& load : typed_.Loads) {
            total_ += load.Vertical;
        }
        return true;
    }

    bool ReadAxles() {
        if (request_.AxleFile.empty()) {
            axles_ = {{total_, 0}};
            return true;
        }
        auto read = design::ReadAxleLoads(request_.AxleFile);
        if (const auto* error = std::get_if<design::FileError>(&read)) {
            console_.Complain("", error->Text());
            return false;
        }
        if (!(total_ > 0)) {
            console_.Complain(request_.File,
                              "its vertical loads do not sum up to an axle load above 0, so that none "
                              "of the table can be scaled from it");
            return false;
        }
        axles_ = std::move(std::get<std::vector<design::AxleLoad>>(read));
        return true;
    }

    /// The loads so that their sum is that of the axle.
    solver::Problem Scaled(const design::AxleLoad& axle) const {
        solver::Problem problem = typed_;
        const double factor = request_.AxleFile.empty() ? 1 : axle.Load / total_;
        for (solver::Load& load : problem.Loads) {
            load.Vertical *= factor;
            load.Horizontal *= factor;
            load.Radius *= request_.KeepsPressure ? std::sqrt(factor) : 1;
        }
        return solver::ToConsistentUnits(std::move(problem), request_.Units);
    }

    bool SolveAll() {
        for (const design::AxleLoad& axle : axles_) {
            console_.Progress("solving axle load " + std::to_string(results_.size() + 1) + " of " +
                              std::to_string(axles_.size()));
            results_.push_back(solver::Solve(Scaled(axle)).Points);
            for (const solver::PointResult& point : results_.back()) {
                if (!std::all_of(point.Values.begin(), point.Values.end(), [](double x) { return std::isfinite(x); })) {
                    console_.Complain(request_.File,
                                      "axle load " + ShortestText(axle.Load) + ": a result is no finite number");
                    return false;
                }
            }
        }
        return true;
    }

    ExitCode Write(const std::string& rows) {
        if (request_.CsvFile.empty()) {
            return console_.Output(rows);
        }
        try {
            WriteWholeFile(request_.CsvFile, rows);
            return ExitCode::Done;
        } catch (const RuntimeFault& caught) {
            console_.Complain(request_.CsvFile, "cannot be written: " + FaultText(caught));
            return ExitCode::BadInput;
        }
    }

    /// What does not stop the work, but must be known of the strains behind the lives.
    void TellNotes() {
        if (moved_ > 0) {
            console_.Note(request_.File, MovedPointsText(moved_));
        }
        std::set<int> points;
        for (const LifeAtPoints& life : request_.Lives) {
            points.insert(life.Points.begin(), life.Points.end());
        }
        for (const int point : points) {
            double worst = 0;
            for (const auto& ofAxle : results_) {
                for (const double bound : ofAxle[static_cast<std::size_t>(point) - 1].Estimates) {
                    worst = bound <= worst ? worst : bound;  // NaN stays
                }
            }
            if (!(worst <= solver::PromisedError)) {
                console_.Note(request_.File, "point " + std::to_string(point) + ": bound of the relative error " +
                                                 (std::isfinite(worst) ? ScientificText(worst, 1) : "unknown") +
                                                 ", above 1E-9");
            }
        }
    }

    double ModulusOf(const solver::Point& point) const {  // MPa
        const double typed = typed_.Layers[static_cast<std::size_t>(point.Layer) - 1].Modulus;
        return request_.Units == solver::UnitSystem::KnToMpa ? typed : typed * solver::MpaPerKgf;
    }

    std::string Rows() const {
        const bool damages = !request_.AxleFile.empty();
        std::string out = "function,point,layer,x,y,z,load,strain,modulus,life";
        out.append(damages ? ",repetitions,damage\n" : "\n");
        for (const LifeAtPoints& life : request_.Lives) {
            for (const int point : life.Points) {
                AppendRows(out, life.Function, static_cast<std::size_t>(point) - 1, damages);
            }
        }
        return out;
    }

    void AppendRows(std::string& out, const design::TransferFunction& function, std::size_t index, bool damages) const {
        const solver::Point& point = typed_.Points[index];
        const double modulus = ModulusOf(point);
        const std::string head = function.Name + "," + std::to_string(index + 1) + "," + std::to_string(point.Layer) +
                                 "," + ShortestText(point.X) + "," + ShortestText(point.Y) + "," +
                                 ShortestText(point.Z) + ",";
        std::vector<double> repetitions;
        std::vector<double> lives;
        double count = 0;
        for (std::size_t i = 0; i < axles_.size(); ++i) {
            const double strain = design::StrainOf(function.Kind, results_[i][index].Values);
            repetitions.push_back(axles_[i].Repetitions);
            lives.push_back(design::LifeOf(function, strain, modulus, request_.MixFactor));
            count += repetitions.back();
            out.append(head).append(ShortestText(axles_[i].Load)).append(",");
            out.append(ShortestText(strain * solver::MicroPerStrain)).append(",").append(ShortestText(modulus));
            out.append(",").append(ShortestText(lives.back()));
            if (damages) {
                const double damage = design::MinerDamage({&repetitions.back(), 1}, {&lives.back(), 1});
                out.append(",").append(ShortestText(repetitions.back())).append(",").append(ShortestText(damage));
            }
            out.append("\n");
        }
        if (damages) {
            const double damage = design::MinerDamage(repetitions, lives);
            const double life = damage > 0 ? count / damage : HUGE_VAL;
            out.append(head).append("all,,").append(ShortestText(modulus)).append(",").append(ShortestText(life));
            out.append(",").append(ShortestText(count)).append(",").append(ShortestText(damage)).append("\n");
        }
    }
};

}  // namespace

ExitCode RunLives(const LivesRequest& request, Console& console) {
    return request.List ? PrintFunctions(console) : LivesWork(request, console).Run();
}

}  // namespace zirvo::batch
