#include "documents/ui/Features.h"

#include "analysis/ui/AnalysisFeature.h"
#include "audio/ui/SoundFeature.h"
#include "check/ui/CheckFeature.h"
#include "compile/ui/CompileFeature.h"
#include "documents/ui/HalvesFeature.h"
#include "documents/ui/HeadersFeature.h"
#include "documents/ui/ProgramsFeature.h"
#include "help/ui/HelpFeature.h"
#include "insight/ui/FoldFeature.h"
#include "insight/ui/GoFeature.h"
#include "insight/ui/MarksFeature.h"
#include "insight/ui/MeaningFeature.h"
#include "insight/ui/OutlineFeature.h"
#include "insight/ui/RenameFeature.h"
#include "preferences/ui/PreferencesFeature.h"
#include "printing/ui/PrintFeature.h"
#include "typing/ui/CompletionFeature.h"
#include "typing/ui/HintFeature.h"
#include "typing/ui/IndentFeature.h"
#include "typing/ui/LineFeature.h"
#include "typing/ui/PointerHelpFeature.h"

namespace ardiphon {

namespace {

using NewFeature = std::unique_ptr<WindowFeature> (*)();

template <typename Feature>
std::unique_ptr<WindowFeature> newFeature()
{
    return std::make_unique<Feature>();
}

constexpr NewFeature Features[] = {
    newFeature<HeadersFeature>,     newFeature<PreferencesFeature>, newFeature<CompileFeature>,
    newFeature<AnalysisFeature>,    newFeature<SoundFeature>,       newFeature<ProgramsFeature>,
    newFeature<PrintFeature>,       newFeature<HalvesFeature>,      newFeature<HelpFeature>,
    newFeature<OutlineFeature>,     newFeature<GoFeature>,          newFeature<FoldFeature>,
    newFeature<RenameFeature>,      newFeature<MarksFeature>,       newFeature<MeaningFeature>,
    newFeature<CheckFeature>,       newFeature<CompletionFeature>,  newFeature<HintFeature>,
    newFeature<PointerHelpFeature>, newFeature<LineFeature>,        newFeature<IndentFeature>,
};

} // namespace

std::vector<std::unique_ptr<WindowFeature>> programFeatures()
{
    std::vector<std::unique_ptr<WindowFeature>> features;
    for (const NewFeature make : Features)
        features.push_back(make());
    return features;
}

} // namespace ardiphon
