// CDOMHelper with arbitrary queries: the input's first line is the query,
// the rest a document to query (a fixed one when there is none). Every form
// must answer true or false, append only when it answers, and never print.
#include <libxml/parser.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "qor/xml/DOMHelper.h"

namespace {

const char kDocument[] =
    "<Plates file='PlateInfo'><Plate Labware='96 well' Name='A'>12<b>x</b></Plate>"
    "<Plate Name='B' xmlns:q='urn:q' q:Shelf='3'/><!-- c --><?pi data?><Word>abc</Word></Plates>";

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string input(reinterpret_cast<const char *>(data), size);
    const std::size_t line = input.find('\n');
    const std::string query = input.substr(0, line);
    if (query.size() > 256) return 0;  // XPath's own cost grows with the query, not ours
    const std::string body = line == std::string::npos ? std::string() : input.substr(line + 1);
    const std::string &source = body.empty() ? std::string(kDocument) : body;
    xmlDocPtr document = xmlReadMemory(source.data(), static_cast<int>(source.size()), nullptr, nullptr,
                                       XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING);
    {
        CDOMHelper helper(document);
        std::string text, value;
        std::vector<std::string> texts, values;
        long long number = 0;
        helper.FindTextA(query, text);
        helper.FindTextA(query, number);
        if (!helper.FindTextA(query, texts) && !texts.empty()) std::abort();
        helper.FindAttribute(query, "Name", value);
        helper.FindAttribute(query, "q:Shelf", values);
        helper.AddTopLevelTextElement(query, body);
        helper.FindTextA(query, text);
    }
    xmlFreeDoc(document);
    return 0;
}
