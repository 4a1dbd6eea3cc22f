// The version reader on arbitrary bytes: taken as a PE image, and taken as a
// bare version resource, every read must stay inside the input.
#include <cstddef>
#include <cstdint>

#include "qor/host/VersionBlock.h"
#include "qor/host/VersionInfo.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    CVersionInfo info;
    if (info.LoadFromMemory(data, size)) {
        info.GetFileVersion();
        info.GetCreationTime();
        for (int t = 0; t < info.GetTranslationCount(); ++t) {
            info.SetTranslation(t);
            info.GetCompanyName();
            info.GetProductName();
            info.GetFileVersionAsString();
            info.GetProductVersionAsString();
        }
    }
    if (auto root = qor::ParseVersionBlock({data, size})) {
        qor::FindVersionBlock(*root, "\\StringFileInfo\\040904b0\\CompanyName");
        qor::FindVersionBlock(*root, "\\VarFileInfo\\Translation");
        for (const auto &child : root->children)
            for (const auto &grandchild : child.children) qor::VersionText(grandchild);
    }
    return 0;
}
