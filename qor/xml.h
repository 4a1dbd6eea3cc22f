// The XML document layer: node tree, parser, reader, writer, MD5 sum,
// escaping and the one exception.
#pragma once

#include "qor/xml/MD5Checksum.h"
#include "qor/xml/XMLConstants.h"
#include "qor/xml/XMLEscape.h"
#include "qor/xml/XMLNode.h"
#include "qor/xml/XMLParser.h"
#include "qor/xml/XMLParserException.h"
#include "qor/xml/XMLReader.h"
#include "qor/xml/XMLReaderAndWriter.h"
#include "qor/xml/XMLWriter.h"
