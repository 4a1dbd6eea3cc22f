// The main of the desktop programs: help is answered before the toolkit
// starts, so `--help` works where there is no display; everything else goes
// to the wxWidgets application the program implements.
#pragma once

#include <wx/init.h>

#include <cstdio>
#include <cstring>

namespace qor::tools {

inline int WxMain(int argc, char **argv, const char *help) {
    for (int i = 1; i < argc; ++i)
        if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            std::fputs(help, stdout);
            return 0;
        }
    return wxEntry(argc, argv);
}

}  // namespace qor::tools
