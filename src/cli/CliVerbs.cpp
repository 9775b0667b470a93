// The table of every verb, from which landwright-cli finds the verb it is given and writes its
// usage text.
#include "CliTerrain.h"

#include <array>
#include <string>

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
    // Each verb on a line of its own with its arguments, its summary indented below it: the
    // arguments of the conversions are too long to share a line with a summary.
    std::string text;
    const auto add = [&text](const std::string& call, const std::string& summary) {
        text += (text.empty() ? "usage: landwright-cli " : "       landwright-cli ") + call + "\n";
        text += "           " + summary + "\n";
    };
    for (std::span<const CliVerb> group : VerbGroups())
        for (const CliVerb& verb : group)
            add(std::string(verb.name) + " " + verb.arguments, verb.summary);
    add("--help", "this list");
    return text;
}
