// Declaring a record. A record is a class of public value fields whose
// behaviour comes from its field table; its header holds the class, its
// fields with their defaults, and one of the macros below:
//
//   namespace HooksPluginXMLMarshaller {
//   class ProtocolPaused : public HooksPluginXMLMarshallableObject {
//   public:
//       QOR_RECORD(ProtocolPaused)
//       std::string Path = NotSpecified;
//       int PauseType = 0;
//   };
//   }
//
// and its source holds the field table (see qor/marshal/RecordDefinition.h).
// The macro declares every member a record has: the constructors (default,
// from a whole document, from one element), copy and move, the virtual
// destructor, the statics CreateXMLMarshaller and CreateXMLNode, the virtual
// operations of XMLMarshallableObject, and the record's own virtual
// ToObjectInstance and FromObjectInstance. It adds ElementName (the element
// and class name), a field-by-field operator== and GetRecordDescription(), what the
// table says of the record.
//
// A record that derives from another record uses QOR_DERIVED_RECORD, so that
// its ToObjectInstance and FromObjectInstance are marked as overrides.
//
// Records that differ only in their element names derive from one plain
// struct that holds the fields as well as from their family base
// (class Aborted : public HooksPluginXMLMarshallableObject, public
// PathEventFields), and each one's source names the shape's single table.
#pragma once

#include <memory>
#include <string>

#include "qor/marshal/RecordFamilies.h"
#include "qor/marshal/XMLMarshallableObject.h"

namespace ObjectInstanceXMLMarshaller {
class ObjectInstance;
}
namespace qor {
struct RecordDescription;
}

#define QOR_RECORD_MEMBERS_(Name)                                                              \
public:                                                                                        \
    static constexpr const char ElementName[] = #Name;                                         \
    /* The special members are the compiler's, inline: records are copied, */                \
    /* made and destroyed by the thousand in lists of wells and parameters. */                 \
    Name() = default;                                                                          \
    explicit Name(const std::string &xml);                                                     \
    explicit Name(const XMLParser::XMLNode &node);                                             \
    Name(const Name &) = default;                                                              \
    Name(Name &&) noexcept = default;                                                          \
    Name &operator=(const Name &) = default;                                                   \
    Name &operator=(Name &&) noexcept = default;                                               \
    ~Name() override = default;                                                                \
    static void CreateXMLMarshaller(Name &record, const XMLParser::XMLNode &node);             \
    static void CreateXMLNode(XMLParser::XMLNode &node, const Name &record);                   \
    XMLParser::XMLNode ToXMLNode() const override;                                             \
    std::string ToXMLString() const override;                                                  \
    std::shared_ptr<XMLMarshaller::XMLMarshallableObject> Clone() const override;              \
    const std::string &GetClassName() const override;                                          \
    bool operator==(const Name &other) const;                                                  \
    /* What the record's table says of it (qor/marshal/RecordDescription.h). */                \
    static const ::qor::RecordDescription &GetRecordDescription();                                      \
    /* The field table; defined, and usable, only in the record's own source. */               \
    static const auto &FieldTable();

#define QOR_RECORD(Name)                                                                       \
    QOR_RECORD_MEMBERS_(Name)                                                                  \
    virtual void ToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance) const; \
    virtual void FromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance);

#define QOR_DERIVED_RECORD(Name)                                                               \
    QOR_RECORD_MEMBERS_(Name)                                                                  \
    void ToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance) const override; \
    void FromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance) override;
