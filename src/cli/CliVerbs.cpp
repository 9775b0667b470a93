// The table of every verb, from which landwright-cli finds the verb it is given and writes its
// usage text.
#include "CliTerrain.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace {

// Every group of verbs, in the order the usage text lists them. A new group is one line here.
std::array<std::span<const CliVerb>, 5> VerbGroups() {
    return {FileVerbs(), TerrainFileVerbs(), PictureVerbs(), TerragenObjVerbs(), ThreeDSVerbs()};
}

} // namespace

const CliVerb* FindVerb(const std::string& name) {
    for (std::span<const CliVerb> group : VerbGroups())
        for (const CliVerb& verb : group)
            if (name == verb.name) return &verb;
    return nullptr;
}

std::string UsageText() {
    std::vector<std::pair<std::string, std::string>> lines;
    for (std::span<const CliVerb> group : VerbGroups())
        for (const CliVerb& verb : group)
            lines.emplace_back(std::string(verb.name) + " " + verb.arguments, verb.summary);
    lines.emplace_back("--help", "this list");
    std::size_t width = 0;
    for (const auto& line : lines)
        width = std::max(width, line.first.size());
    std::string text;
    for (const auto& [call, summary] : lines) {
        text += text.empty() ? "usage: " : "       ";
        text += "landwright-cli " + call + std::string(width + 2 - call.size(), ' ') + summary + "\n";
    }
    return text;
}
