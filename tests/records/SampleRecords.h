// Records declared only for the tests: every kind of field and every
// departure a table can mark, so the machinery is proven beyond the
// library's own records.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal.h"

namespace SampleRecords {

enum Hue : int { HUE_RED = 0, HUE_GREEN = 1, HUE_BLUE = 7 };

class Item : public PipetteXMLMarshaller::PipetteXMLMarshallerBase {
    QOR_RECORD(Item)
    std::string Label;
    int Count = 0;
};

// An Item under its own element name with a field of its own.
class LabelledItem : public Item {
    QOR_DERIVED_RECORD(LabelledItem)
    std::string Extra = "extra";
};

class Sample : public MetaDataManagerBase {
    QOR_RECORD(Sample)
    std::string Text = "default text";
    int Signed = -1;
    unsigned int Unsigned = 7;
    double Real = 0.5;
    bool Flag = true;
    Hue Colour = HUE_BLUE;                 // an enumeration attribute
    double Capacity = 0.0;                 // written in full, read as a long
    std::string Shown = "shown";           // shown, never read back, own description
    std::string WellText;                  // a Parameter type of its own
    std::string Secret;                    // no Parameter
    std::string Stamp = "7";               // shows a constant in its place
    std::vector<std::string> Names;
    std::vector<int> Numbers;              // wrapper written even when empty
    std::vector<Item> Items;
    Item Single;
};

// A record of another file type, with no fields.
class Ping : public MetaDataManagerBase {
    QOR_RECORD(Ping)
};

// A record whose property bag is partly hand-written: it always shows the
// version "1.0", whatever its field holds.
class Versioned : public MetaDataManagerBase {
    QOR_RECORD(Versioned)
    std::string Version;
    int Revision = 0;
};

// Records nested in a class, as the device metadata records are.
class Enclosing {
public:
    class Nested;
};

class Enclosing::Nested : public MetaDataManagerBase {
    QOR_RECORD(Nested)
    std::string Name;
    std::vector<Item> Items;
};

// Every sample type, as a family's table lists its records.
std::span<const qor::RecordType> RecordTypes();

}  // namespace SampleRecords
