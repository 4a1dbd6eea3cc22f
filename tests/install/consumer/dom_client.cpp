// A client of the installed DOM helper: a libxml2 document, an element added
// under its root and found again by an XPath query.
#include <libxml/parser.h>

#include <cstdio>
#include <string>

#include "qor/xml/DOMHelper.h"

int main() {
    xmlDocPtr document = xmlReadMemory("<Plates/>", 9, "plates.xml", nullptr, 0);
    long long count = 0;
    bool found = false;
    {
        CDOMHelper helper(document);
        found = helper.AddTopLevelTextElement("Count", 96) && helper.FindTextA("/Plates/Count", count);
    }
    xmlFreeDoc(document);
    std::printf("dom client: %lld\n", count);
    return found && count == 96 ? 0 : 1;
}
