// One walk over every registered record type, and over the sample records
// that use the departures no family needs yet. Everything is driven by the
// type's description: the elements fed to a record are built from its field
// table, so a new record is covered by registering it.
#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <typeinfo>

#include "SampleRecords.h"
#include "marshal/MarshalTestSupport.h"
#include "qor/marshal.h"
#include "qor/records/RecordRegistry.h"

namespace qor {
// Test names say which type failed; this says it in the message too.
void PrintTo(const RecordType &type, std::ostream *out) { *out << type.family << "::" << type.elementName; }
}  // namespace qor

namespace {

using qor::FieldDescription;
using qor::FieldKind;
using qor::RecordDescription;
using qor::ValueType;
using XMLNode = XMLParser::XMLNode;
using ObjectInstanceXMLMarshaller::ObjectInstance;

// ---- elements made from a description

// A value of the field's type other than its default, in the form the writer
// writes; variant tells list items apart. Strings carry what must be escaped
// and bytes above 127, which pass through untouched.
std::string TestValue(const FieldDescription &field, int variant = 0) {
    // The variant-th candidate that isn't the default.
    auto other = [&](std::initializer_list<const char *> candidates) {
        int skip = variant;
        for (const char *candidate : candidates) {
            if (field.defaultValue != candidate && skip-- == 0) return std::string(candidate);
        }
        return std::string(*candidates.begin());
    };
    switch (field.valueType) {
    case ValueType::String: return "walk " + std::to_string(variant) + " " + field.key + " <&'\"> \xC3\xA9";
    case ValueType::Bool: return field.defaultValue == "1" ? "0" : "1";
    case ValueType::Integer: return other({"-42", "43", "44"});
    case ValueType::Unsigned:
    case ValueType::Enumeration: return other({"5", "6", "7"});
    case ValueType::Real: return field.readAsLong ? other({"12", "13", "14"}) : other({"2.5", "-0.125", "0.75"});
    case ValueType::Record: break;
    }
    return "";
}

bool IsAttribute(const FieldDescription &field) {
    return field.kind == FieldKind::StringAttribute || field.kind == FieldKind::NumberAttribute ||
           field.kind == FieldKind::EnumAttribute;
}

// The element of a record whose fields are at their defaults, except those
// `filled` picks, which hold test values; lists of records get two items
// filled down to `depth` levels.
XMLNode Element(const RecordDescription &description, int depth, int variant,
                const std::function<bool(std::size_t)> &filled) {
    XMLNode node;
    node.name = description.elementName;
    for (std::size_t i = 0; i < description.fields.size(); ++i) {
        const FieldDescription &field = description.fields[i];
        const bool fill = filled(i);
        if (IsAttribute(field)) {
            const std::string value = fill ? TestValue(field, variant) : field.defaultValue;
            if (field.kind != FieldKind::StringAttribute || !value.empty()) node.attributes[field.key] = value;
        } else if (field.kind == FieldKind::ChildRecord) {
            const bool deeper = fill && depth > 0;
            node.children.push_back(Element(field.item(), depth - 1, variant, [&](std::size_t) { return deeper; }));
        } else {
            const int items = fill && (field.kind == FieldKind::ValueList || depth > 0) ? 2 : 0;
            if (items == 0 && !field.wrapperAlways) continue;
            XMLNode &wrapper = node.children.emplace_back();
            wrapper.name = field.key;
            for (int item = 0; item < items; ++item) {
                if (field.kind == FieldKind::RecordList) {
                    wrapper.children.push_back(Element(field.item(), depth - 1, item, [](std::size_t) { return true; }));
                } else {
                    XMLNode &value = wrapper.children.emplace_back();
                    value.name = "Value";
                    value.attributes["Value"] = field.valueType == ValueType::String && item == 1
                                                    ? std::string()  // an empty item is kept
                                                    : TestValue(field, item);
                }
            }
        }
    }
    return node;
}

XMLNode DefaultElement(const RecordDescription &description) {
    return Element(description, 0, 0, [](std::size_t) { return false; });
}

XMLNode FilledElement(const RecordDescription &description, int depth = 2) {
    return Element(description, depth, 0, [](std::size_t) { return true; });
}

// A node as comparable text: element, attributes in their map order, children.
std::string Text(const XMLNode &node, int depth = 0) {
    std::string out(2 * depth, ' ');
    out += "<" + node.name;
    for (const auto &[key, value] : node.attributes) out += " " + key + "='" + value + "'";
    out += node.text.empty() ? ">\n" : ">" + node.text + "\n";
    for (const XMLNode &child : node.children) out += Text(child, depth + 1);
    return out;
}

// ---- the walk

std::vector<qor::RecordType> WalkedTypes() {
    std::vector<qor::RecordType> types = qor::AllRecordTypes();
    const auto samples = SampleRecords::RecordTypes();
    types.insert(types.end(), samples.begin(), samples.end());
    return types;
}

class RecordWalk : public testing::TestWithParam<qor::RecordType> {
protected:
    const qor::RecordType &type() const { return GetParam(); }
    const RecordDescription &description() const { return GetParam().describe(); }
};

TEST_P(RecordWalk, DefaultsAreWhatTheDescriptionSays) {
    const auto record = description().make();
    EXPECT_EQ(record->GetClassName(), type().elementName);
    EXPECT_STREQ(description().elementName, type().elementName);
    EXPECT_EQ(Text(record->ToXMLNode()), Text(DefaultElement(description())));

    const std::string document = record->ToXMLString();
    EXPECT_EQ(document, record->ToXMLString());  // each call writes afresh
    EXPECT_NE(document.find(std::string("<Brindlemar file='") + description().fileType + "' md5sum='"),
              std::string::npos)
        << document;
    EXPECT_EQ(description().fromDocument(document)->ToXMLString(), document);
}

TEST_P(RecordWalk, EachFieldReadsBackAlone) {
    const auto defaults = description().make();
    const std::string defaultText = Text(defaults->ToXMLNode());
    for (std::size_t i = 0; i < description().fields.size(); ++i) {
        const FieldDescription &field = description().fields[i];
        SCOPED_TRACE(field.key);
        const XMLNode node = Element(description(), 2, 0, [i](std::size_t j) { return i == j; });
        const auto record = description().fromNode(node);
        EXPECT_EQ(Text(record->ToXMLNode()), Text(node));
        EXPECT_EQ(Text(description().fromDocument(record->ToXMLString())->ToXMLNode()), Text(node));
        if (Text(node) != defaultText) {
            EXPECT_EQ(description().equal(*record, *defaults), !field.compared);
        }
    }
}

// A value the reader changes: a string emptied drops out and comes back as
// its default, a fraction read as a long is cut.
TEST_P(RecordWalk, ReadingNormalisesWhatItMust) {
    const XMLNode defaults = DefaultElement(description());
    for (const FieldDescription &field : description().fields) {
        SCOPED_TRACE(field.key);
        XMLNode node = defaults;
        XMLNode expected = defaults;
        if (field.kind == FieldKind::StringAttribute && !field.defaultValue.empty()) {
            node.attributes[field.key] = "";
            expected.attributes.erase(field.key);
        } else if (field.kind == FieldKind::NumberAttribute && field.valueType == ValueType::Real && field.readAsLong) {
            node.attributes[field.key] = "12.75";
            expected.attributes[field.key] = "12";
        } else {
            continue;
        }
        const auto record = description().fromNode(node);
        EXPECT_EQ(Text(record->ToXMLNode()), Text(expected));
        // Written without the field, the document reads back the default.
        EXPECT_EQ(Text(description().fromDocument(record->ToXMLString())->ToXMLNode()),
                  Text(field.kind == FieldKind::StringAttribute ? defaults : expected));
    }
}

TEST_P(RecordWalk, WholeRecordReadsBackAndClones) {
    const XMLNode node = FilledElement(description());
    const auto record = description().fromNode(node);
    EXPECT_EQ(Text(record->ToXMLNode()), Text(node));

    const auto clone = record->Clone();
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(typeid(*clone), typeid(*record));
    EXPECT_TRUE(description().equal(*clone, *record));
    EXPECT_EQ(clone->ToXMLString(), record->ToXMLString());
    EXPECT_EQ(&clone->GetClassName(), &description().make()->GetClassName());  // one shared name
}

TEST_P(RecordWalk, ObjectInstanceShowsTheParameterFieldsAndReadsBackTheirs) {
    const auto record = description().fromNode(FilledElement(description(), 1));
    ObjectInstance instance;
    instance.BaseObjectDescription.ObjectType = "left over";
    description().toObjectInstance(*record, instance);
    EXPECT_EQ(instance.BaseObjectDescription.ObjectType, "");  // the instance starts afresh
    const auto back = description().make();
    description().fromObjectInstance(*back, instance);
    if (description().handWrittenObjectInstance) return;  // its own tests say what it shows

    std::vector<marshal_test::ParameterRow> expected;
    for (const FieldDescription &field : description().fields) {
        if (!field.parameterName) continue;
        expected.push_back({"Properties", field.parameterName, field.parameterType,
                            field.shownValue ? field.shownValue : TestValue(field), field.parameterDescription});
    }
    EXPECT_EQ(marshal_test::Rows(instance), expected);

    const XMLNode readBack = Element(description(), 0, 0, [&](std::size_t i) { return description().fields[i].readBack; });
    EXPECT_EQ(Text(back->ToXMLNode()), Text(readBack));
}

std::string TestName(const testing::TestParamInfo<qor::RecordType> &info) {
    std::string name = std::string(info.param.family) + "_" + info.param.elementName;
    for (char &c : name) {
        if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(Every, RecordWalk, testing::ValuesIn(WalkedTypes()), TestName);

// ---- the registry itself

TEST(RecordRegistry, NamesAreUniqueAndFoundExactly) {
    std::set<std::string> names;
    for (const qor::RecordType &type : qor::AllRecordTypes()) {
        EXPECT_TRUE(names.insert(type.elementName).second) << type.elementName << " registered twice";
        EXPECT_EQ(qor::FindRecordType(type.elementName), &type);
        EXPECT_EQ(qor::FindRecordType(type.family, type.elementName), &type);
        for (const FieldDescription &field : type.describe().fields) {
            // Items and children are built by name from documents too.
            if (field.item) {
                EXPECT_NE(qor::FindRecordType(field.item().elementName), nullptr) << field.key;
            }
        }
    }
    EXPECT_EQ(qor::FindRecordType("protocolpaused"), nullptr);
    EXPECT_EQ(qor::FindRecordType("ProtocolPaused/"), nullptr);
    EXPECT_EQ(qor::FindRecordType("MetaDataManager", "ProtocolPaused"), nullptr);
    XMLNode unknown;
    unknown.name = "NoSuchRecord";
    EXPECT_EQ(qor::MakeRecord(unknown), nullptr);
}

}  // namespace
