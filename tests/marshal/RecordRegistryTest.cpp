// The registry of record types: every registered record builds itself back
// from its own element and shows itself as a property bag.
#include <gtest/gtest.h>

#include <set>

#include "qor/marshal.h"
#include "qor/records/RecordRegistry.h"
#include "qor/records/hooks.h"

namespace {

TEST(RecordRegistry, EveryTypeRoundTripsThroughItsElementName) {
    std::set<std::string> names;
    for (const qor::RecordType &type : qor::AllRecordTypes()) {
        SCOPED_TRACE(type.elementName);
        EXPECT_TRUE(names.insert(type.elementName).second) << "element name registered twice";
        XMLParser::XMLNode node;
        node.name = type.elementName;
        const auto record = type.fromNode(node);
        ASSERT_NE(record, nullptr);
        EXPECT_EQ(record->GetClassName(), type.elementName);
        EXPECT_EQ(record->ToXMLNode().name, type.elementName);
        const auto again = qor::MakeRecord(record->ToXMLNode());
        ASSERT_NE(again, nullptr);
        EXPECT_EQ(again->ToXMLString(), record->ToXMLString());
        ObjectInstanceXMLMarshaller::ObjectInstance instance;
        type.toObjectInstance(*record, instance);
    }
    EXPECT_TRUE(names.count("ProtocolPaused"));
    EXPECT_TRUE(names.count("ObjectInstance"));
    EXPECT_TRUE(names.count("Parameter"));
}

TEST(RecordRegistry, FindsByExactNameOnly) {
    ASSERT_NE(qor::FindRecordType("ProtocolPaused"), nullptr);
    EXPECT_STREQ(qor::FindRecordType("ProtocolPaused")->family, "HooksPluginXMLMarshaller");
    EXPECT_EQ(qor::FindRecordType("protocolpaused"), nullptr);
    EXPECT_EQ(qor::FindRecordType("ProtocolPaused/"), nullptr);
    XMLParser::XMLNode unknown;
    unknown.name = "NoSuchRecord";
    EXPECT_EQ(qor::MakeRecord(unknown), nullptr);

    XMLParser::XMLNode paused;
    paused.name = "ProtocolPaused";
    paused.attributes["PauseType"] = "6";
    const auto record = qor::MakeRecord(paused);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(dynamic_cast<const HooksPluginXMLMarshaller::ProtocolPaused &>(*record).PauseType, 6);
}

}  // namespace
