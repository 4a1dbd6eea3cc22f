// XMLRegistry: the exported document, the import, and every refusal.
#include <string>

#include "SettingsTestSupport.h"
#include "qor/settings/XMLRegistry.h"
#include "qor/xml/MD5Checksum.h"

namespace {

using settings_test::SettingsTest;

const char *const kFileType = "Settings";

class XMLRegistryTest : public SettingsTest {
protected:
    // The document with its sum replaced by zeros; checks the sum on the way.
    static std::string WithoutSum(std::string xml) {
        const std::string key = "md5sum='";
        const std::size_t at = xml.find(key);
        EXPECT_NE(at, std::string::npos);
        if (at == std::string::npos) return xml;
        const std::string sum = xml.substr(at + key.size(), 32);
        xml.replace(at + key.size(), 32, std::string(32, '0'));
        EXPECT_EQ(CMD5Checksum::GetMD5(xml), sum);
        return xml;
    }
    std::string Export(const char *path, const std::string &extra) {
        std::string xml;
        EXPECT_TRUE(xmlRegistry.ExportXML(path, xml, kFileType, "1.0", extra));
        return xml;
    }
    bool Import(const char *parent, const std::string &xml, const std::string &entry = "") {
        error.clear();
        return xmlRegistry.ImportXML(parent, xml, kFileType, error, entry);
    }

    // One value of every kind, a nested key and two empty ones (saving
    // without a value name only creates the key).
    void SaveArm() {
        ASSERT_EQ(registry.SaveKey("Lab\\Arm", "Name", "arm & 'hand'"), 1);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm", "Speed", 0xFFFFFFFFul), 1);
        CRegVal big(7ul);
        big.SetType(5);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm", "Big", big), 1);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm", "Ports", CStringArray{"COM1", "COM2"}), 1);
        unsigned char raw[] = {1, 2};
        ASSERT_EQ(registry.SaveKey("Lab\\Arm", "Raw", raw, 2), 1);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm\\Gripper", "Force", 12ul), 1);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm\\Gripper\\Empty", nullptr, nullptr), 1);
        ASSERT_EQ(registry.SaveKey("Lab\\Arm\\Axis", nullptr, "ignored"), 1);
    }
    // The number stored under `name`, or 0xBAD when none loads.
    unsigned long Number(const char *key, const char *name) {
        unsigned long number = 0;
        return registry.LoadKey(key, name, number) ? number : 0xBAD;
    }
    std::string Text(const char *key, const char *name) {
        std::string text = "(missing)";
        registry.LoadKey(key, name, text);
        return text;
    }

    CRegistry registry;
    XMLRegistry xmlRegistry{HKEY_CURRENT_USER};
    std::string error;
};

TEST_F(XMLRegistryTest, ExportWritesTheDocumentFormat) {
    SaveArm();
    const std::string expected =
        "<?xml version='1.0' encoding='ASCII' ?>\n"
        "<Brindlemar extrainfo='Arm &amp; co' file='Settings' md5sum='00000000000000000000000000000000' version='1.0' >\n"
        "\t<values >\n"
        "\t\t<value name='Name' type='1' value='arm &amp; &apos;hand&apos;' />\n"
        "\t\t<value name='Speed' type='4' value='-1' />\n"
        "\t\t<value name='Big' type='5' value='7' />\n"
        "\t\t<value name='Ports' type='7' value.0='COM1' value.1='COM2' />\n"
        "\t\t<value name='Raw' type='3' value='Registry data type not supported' />\n"
        "\t</values>\n"
        "\t<subkeys >\n"
        "\t\t<subkey name='Axis' >\n"
        "\t\t\t<values />\n"
        "\t\t\t<subkeys />\n"
        "\t\t</subkey>\n"
        "\t\t<subkey name='Gripper' >\n"
        "\t\t\t<values >\n"
        "\t\t\t\t<value name='Force' type='4' value='12' />\n"
        "\t\t\t</values>\n"
        "\t\t\t<subkeys >\n"
        "\t\t\t\t<subkey name='Empty' >\n"
        "\t\t\t\t\t<values />\n"
        "\t\t\t\t\t<subkeys />\n"
        "\t\t\t\t</subkey>\n"
        "\t\t\t</subkeys>\n"
        "\t\t</subkey>\n"
        "\t</subkeys>\n"
        "</Brindlemar>";
    EXPECT_EQ(WithoutSum(Export("Lab\\Arm", "Arm & co")), expected);
}

TEST_F(XMLRegistryTest, AnEmptyOrMissingKeyExportsEmptyValuesAndSubkeys) {
    ASSERT_EQ(registry.SaveKey("Lab\\Blank\\Only\\The\\Key", nullptr, nullptr), 1);
    const std::string empty =
        "<?xml version='1.0' encoding='ASCII' ?>\n"
        "<Brindlemar extrainfo='Blank' file='Settings' md5sum='00000000000000000000000000000000' version='1.0' >\n"
        "\t<values />\n"
        "\t<subkeys />\n"
        "</Brindlemar>";
    const std::string xml = Export("Lab\\Blank\\Only\\The\\Key", "Blank");
    EXPECT_EQ(WithoutSum(xml), empty);
    EXPECT_EQ(WithoutSum(Export("Lab\\Nowhere", "Blank")), empty);

    // Importing it creates the key, and nothing in it.
    ASSERT_TRUE(Import("Copies\\", xml)) << error;
    unsigned long subkeys = 9, values = 9;
    EXPECT_EQ(registry.HasEntries("Copies\\Blank", &subkeys, &values), 0);
    EXPECT_EQ(subkeys + values, 0u);
    EXPECT_EQ(registry.HasEntries("Copies", &subkeys, &values), 1);
    EXPECT_EQ(subkeys, 1u);
    EXPECT_EQ(registry.HasEntries("Lab\\Blank\\Only\\The", &subkeys, &values), 1);  // a path made whole
    EXPECT_EQ(registry.HasEntries("Lab\\Nowhere", &subkeys, &values), 0);
}

TEST_F(XMLRegistryTest, ImportBringsNumbersBackAsNumbersAndAllElseAsStrings) {
    SaveArm();
    const std::string xml = Export("Lab\\Arm", "Original");
    ASSERT_TRUE(Import("Imported\\", xml, "Renamed")) << error;
    EXPECT_EQ(Number("Imported\\Renamed", "Speed"), 0xFFFFFFFFul);
    EXPECT_EQ(Number("Imported\\Renamed\\Gripper", "Force"), 12u);
    EXPECT_EQ(Text("Imported\\Renamed", "Name"), "arm & 'hand'");
    EXPECT_EQ(Text("Imported\\Renamed", "Big"), "7");
    EXPECT_EQ(Text("Imported\\Renamed", "Ports"), "");
    EXPECT_EQ(Text("Imported\\Renamed", "Raw"), "Registry data type not supported");
    unsigned long subkeys = 0;  // the empty keys come too
    EXPECT_EQ(registry.HasEntries("Imported\\Renamed", &subkeys, nullptr), 1);
    EXPECT_EQ(subkeys, 2u);

    // Without an entry name the document's own name is used; the parent
    // path is taken as it stands.
    ASSERT_TRUE(Import("", xml)) << error;
    EXPECT_EQ(Number("Original", "Speed"), 0xFFFFFFFFul);
}

TEST_F(XMLRegistryTest, ImportSkipsEmptyValuesAndReadsNumbersAsAStreamDoes) {
    const std::string xml =
        "<?xml version='1.0' ?><Brindlemar file='Settings' extrainfo='E'>"
        "<values><value /><value name='' type='' value='' />"
        "<value name='neg' type='4' value='-1' /><value name='junk' type='4' value='12abc' />"
        "<value name='bad' type='4' value='abc' /><value name='notype' value='v' />"
        "</values></Brindlemar>";
    ASSERT_TRUE(Import("", xml)) << error;
    unsigned long values = 0;
    EXPECT_EQ(registry.HasEntries("E", nullptr, &values), 1);
    EXPECT_EQ(values, 4u);
    EXPECT_EQ(Number("E", "neg"), 0xFFFFFFFFul);
    EXPECT_EQ(Number("E", "junk"), 12u);
    EXPECT_EQ(Number("E", "bad"), 0u);
    EXPECT_EQ(Text("E", "notype"), "v");
}

TEST_F(XMLRegistryTest, ImportRefusesWithTheSystemsWords) {
    struct Row {
        const char *what;
        const char *parent;
        std::string xml;
        const char *entry;
        std::string error;
    };
    const std::string head = "<?xml version='1.0' ?>";
    const std::string open = head + "<Brindlemar file='Settings' extrainfo='E'>", close = "</Brindlemar>";
    const std::string invalid = "The xml file is invalid.";
    const std::string permission =
        "Please make sure you have permission to write at the specified location: ";
    const std::string longKey(256, 'k');
    const Row rows[] = {
        {"file type", "", head + "<Brindlemar file='Other' extrainfo='E'><values /><subkeys />" + close, "",
         "The file type is incorrect."},
        {"no file type", "", head + "<Brindlemar extrainfo='E'><values />" + close, "", "The file type is incorrect."},
        {"empty name", "", head + "<Brindlemar file='Settings'><values />" + close, "", "The entry name is empty."},
        {"empty name despite entry", "", head + "<Brindlemar file='Settings' extrainfo=''><values />" + close,
         "Given", "The entry name is empty."},
        {"no children", "", head + "<Brindlemar file='Settings' extrainfo='E' />", "", invalid},
        {"subkeys first", "", open + "<subkeys /><values />" + close, "", invalid},
        {"second not subkeys", "", open + "<values /><other />" + close, "", invalid},
        {"subkey without values", "", open + "<values /><subkeys><subkey name='S' /></subkeys>" + close, "", invalid},
        {"unwritable key", "\\", open + "<values />" + close, "", permission + "\\E\\"},
        {"unwritable value", "",
         open + "<values><value name='" + std::string(16384, 'n') + "' value='v' /></values>" + close, "",
         permission + "E\\"},
        {"unwritable subkey", "",
         open + "<values /><subkeys><subkey name='" + longKey + "'><values /></subkey></subkeys>" + close, "",
         permission + "E\\" + longKey + "\\"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_FALSE(Import(row.parent, row.xml, row.entry));
        EXPECT_EQ(error, row.error);
    }
}

TEST_F(XMLRegistryTest, AFailedImportKeepsWhatItWroteBefore) {
    const std::string xml =
        "<?xml version='1.0' ?><Brindlemar file='Settings' extrainfo='Partial'>"
        "<values><value name='first' type='1' value='kept' /></values>"
        "<subkeys><subkey name='Good'><values><value name='v' type='4' value='1' /></values></subkey>"
        "<subkey name='Bad'><subkeys /></subkey></subkeys></Brindlemar>";
    EXPECT_FALSE(Import("", xml));
    EXPECT_EQ(error, "The xml file is invalid.");
    EXPECT_EQ(Text("Partial", "first"), "kept");
    EXPECT_EQ(Number("Partial\\Good", "v"), 1u);
}

TEST_F(XMLRegistryTest, DocumentsTheXMLLayerCannotReadThrowItsException) {
    // The XML layer's own tests hold its every refusal; one of each kind here.
    const char *const broken[] = {"", "<?xml version='1.0' ?><a><b></a>", "<?xml version='1.0' ?><a x ></a>"};
    for (const char *xml : broken) {
        SCOPED_TRACE(xml);
        EXPECT_THROW(Import("", xml), XMLParserException);
    }
}

// A walk through an XMLRegistry outside an export finds no document to
// fill, and stops instead of touching one.
TEST_F(XMLRegistryTest, HooksOutsideAnExportStopTheWalk) {
    ASSERT_EQ(registry.SaveKey("W", "v", "1"), 1);
    EXPECT_EQ(xmlRegistry.RegistryTreeWalk("W", 3), 0);
}

}  // namespace
