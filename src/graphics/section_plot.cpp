// The road of a map, see section_plot.h.
#include "graphics/section_plot.h"

#include "base/runtime_fault.h"
#include "graphics/result_conversion.h"
#include "platform/files.h"
#include "text/version_stamp.h"

namespace zirvo {
namespace {

constexpr Int16 OutputFileStamp = 1;

}  // namespace

SectionInputStatus StartSection(SectionPlot& plot, const GraphicsInputData& model) {
    plot.LayerCount = model.LayerCount;
    plot.Input = PrepareSectionInput(model, plot.Section, plot.Units, plot.LanguageBase);
    return plot.Input.Status;
}

GraphicsRunResult SolveSection(SectionPlot& plot, const std::string& programFolder, ProcessService& process,
                               const ProcessCallbacks& callbacks) {
    const GraphicsRunResult result = RunGraphicsSolver(
        {.Language = LanguageNumberOf(plot.LanguageBase), .Units = plot.Units, .ProgramFolder = programFolder}, process,
        callbacks);
    plot.SolverNotStarted =
        result == GraphicsRunResult::NotStarted ? JoinPath(programFolder, GraphicsSolverName) : std::string();
    return result;
}

namespace {

void Convert(const SectionPlot& plot, const Progress& progress) {
    ConvertResultsToCsv({.ReportPath = SectionReportName,
                         .CsvPath = SectionCsvName,
                         .Language = LanguageNumberOf(plot.LanguageBase),
                         .Units = plot.Units,
                         .LayerCount = plot.LayerCount,
                         .PointCount = plot.Input.PointCount,
                         .OutputComponent = plot.Section.OutputComponent},
                        progress);
}

}  // namespace

void ConvertSection(const SectionPlot& plot, const Progress& progress) {
    try {
        Convert(plot, progress);
    } catch (RuntimeFault& caught) {
        if (caught.About().Matter == FaultMatter::Report && !plot.SolverNotStarted.empty()) {
            caught.SayInstead(FaultMatter::Program, plot.SolverNotStarted);
        }
        throw;
    }
}

ReadOuts LoadSection(SectionPlot& plot, const Progress& progress) {
    plot.Data = ReadResultData(SectionCsvName, plot.Section.Kind, plot.Input.Grid, progress);
    return TakeReadOuts(plot.Data);
}

std::string TitleOf(const SectionPlot& plot) {
    return MakeTitleText(plot.Section.Kind, plot.Section.OutputComponent, plot.PositionText,
                         plot.Section.LayerOfInterest, "  " + MakeVersionStamp(OutputFileStamp));
}

void DrawSection(PlotSurface& surface, const SectionPlot& plot, const DisplayItems& items, Int16 contourLineCount,
                 const PlotGeometry& picture, const Progress& progress) {
    MapView view;
    view.Items = items;
    view.ContourLineCount = contourLineCount;
    view.Plot = picture;
    view.Title = TitleOf(plot);
    view.OfDrawing = progress;
    DrawContourMap(surface, plot.Data.Map, view);
}

}  // namespace zirvo
