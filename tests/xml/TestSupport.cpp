#include "TestSupport.h"

#include <fstream>
#include <random>
#include <sstream>

namespace xmltest {
namespace {

std::string Visible(const std::string &bytes) {
    std::string out;
    for (unsigned char c : bytes) {
        if (c == '\\') {
            out += "\\\\";
        } else if (c < 32 || c > 126) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02x", c);
            out += hex;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out;
}

void DumpInto(std::string &out, const qor::XMLNodeData &node, int depth) {
    out += std::string(depth * 2, ' ') + "[" + Visible(node.name) + "]" +
           (node.closed ? " closed" : "") + " text=[" + Visible(node.text) + "]";
    for (const auto &[key, value] : node.attributes)
        out += " " + Visible(key) + "=[" + Visible(value) + "]";
    out += "\n";
    for (const auto &child : node.children) DumpInto(out, child, depth + 1);
}

}  // namespace

std::string Dump(const qor::XMLNodeData &node) {
    std::string out;
    DumpInto(out, node, 0);
    return out;
}

std::optional<std::string> Describe(const XMLParserException &e) {
    return std::to_string(e.code) + " " + e.function + ": " + Visible(e.message);
}

ScratchFolder::ScratchFolder() {
    std::random_device seed;
    path_ = std::filesystem::temp_directory_path() /
            ("qor-xml-test-" + std::to_string(seed()) + "-" + std::to_string(seed()));
    std::filesystem::create_directories(path_);
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
    std::filesystem::remove_all(path_, ignored);
}

std::string ReadFile(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteFile(const std::string &path, const std::string &contents) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << contents;
}

}  // namespace xmltest
