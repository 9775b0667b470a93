// landwright-cli: inspects, rewrites and converts track and terrain files without a display.
#include "CliTerrain.h"

#include <cstdio>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() == 1 && (args[0] == "--help" || args[0] == "-h")) {
        std::fputs(UsageText().c_str(), stdout);
        return 0;
    }
    if (args.empty()) return UsageError("no verb given");
    const CliVerb* verb = FindVerb(args[0]);
    if (!verb) return UsageError("unknown verb \"" + args[0] + "\"");
    return verb->run(std::vector<std::string>(args.begin() + 1, args.end()));
}
