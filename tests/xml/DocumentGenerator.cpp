#include "DocumentGenerator.h"

#include <iterator>

namespace xmltest {
namespace {

const char *const kNames[] = {"a", "b", "Well", "Plate", "/a", "?pi", "x:y", "Row"};
const char *const kTexts[] = {"plain", "R&D", "&amp;", "&lt;b&gt;", "&#65;", " spaced  ",
                              "\r\n\t", "'q'", "\"dq\"", "&amp;lt;", "&", "x \r\n"};
const char *const kTokens[] = {
    "<",  ">",   "/>",  "</",     "<!--",  "-->",  "<!DOCTYPE", "<!",     "--",
    "-",  "'",   "\"",  "=",      " ",     "\r\n", "\t",        "&",      "&amp;",
    "&lt;", "&gt;", "&quot;", "&apos;", "?xml", "<?xml version='1.0' ?>", "a", "b",
    "</a>", "<a>",  "<a />", "<!-", "<!DOC", "TYPE", "k='v'", "k", "\0", "<!<!", "<!<!--", "<!-->",
};

}  // namespace

std::string DocumentGenerator::Name() { return kNames[Pick(std::size(kNames))]; }

std::string DocumentGenerator::Text() { return kTexts[Pick(std::size(kTexts))]; }

void DocumentGenerator::Element(std::string &out, int depth) {
    // Mostly ordinary names; now and then one that trips the closing rules.
    std::string name = Pick(8) == 0 ? Name() : std::string(kNames[Pick(4) ? 2 + Pick(2) : 0]);
    out += "<" + name;
    int attributes = Pick(4);
    for (int i = 0; i < attributes; ++i) {
        const char quote = Pick(2) ? '\'' : '"';
        out += Pick(2) ? " " : "\r\n\t";
        out += "k" + std::to_string(Pick(5)) + (Pick(6) ? "=" : " = ") + quote;
        out += Pick(3) ? Text() : std::string(1, quote == '\'' ? '"' : '\'');
        out += quote;
    }
    if (depth > 3 || Pick(3) == 0) {
        out += Pick(5) ? " />" : "/>";
        return;
    }
    out += Pick(4) ? " >" : ">";
    int parts = Pick(4);
    for (int i = 0; i < parts; ++i) {
        switch (Pick(5)) {
        case 0: out += Text(); break;
        case 1: out += "<!-- note " + Text() + " -->"; break;
        default: Element(out, depth + 1); break;
        }
        if (Pick(2)) out += "\n" + std::string(depth + 1, '\t');
    }
    out += "</" + name + ">";
}

std::string DocumentGenerator::Document() {
    std::string out;
    if (Pick(8)) out += Pick(6) ? "<?xml version='1.0' encoding='ASCII' ?>\n" : "<?xml version=\"1.1\"?>";
    if (Pick(6) == 0) out += "<!DOCTYPE Brindlemar>\n";
    if (Pick(6) == 0) out += "<!-- head -->\n";
    Element(out, 0);
    if (Pick(6) == 0) out += Pick(2) ? "trailing" : "<extra/>";
    return out;
}

std::string DocumentGenerator::Mutate(std::string document) {
    int edits = 1 + Pick(4);
    for (int i = 0; i < edits; ++i) {
        std::size_t at = document.empty() ? 0 : Pick(static_cast<int>(document.size()) + 1);
        std::size_t length = document.size() - at == 0 ? 0 : 1 + Pick(static_cast<int>(std::min<std::size_t>(12, document.size() - at)));
        switch (Pick(6)) {
        case 0: case 1: {
            std::string token = kTokens[Pick(std::size(kTokens))];
            if (token.empty()) token.assign(1, '\0');
            document.insert(at, token);
            break;
        }
        case 2: document.erase(at, length); break;
        case 3: document.insert(at, document.substr(at, length)); break;
        case 4: document.resize(at); break;
        default:
            if (!document.empty())
                document[at == document.size() ? at - 1 : at] = static_cast<char>(Pick(256));
            break;
        }
    }
    return document;
}

}  // namespace xmltest
