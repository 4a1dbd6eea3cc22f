#include "SampleRecords.h"

#include "qor/marshal/RecordDefinition.h"

namespace SampleRecords {

QOR_DEFINE_RECORD(Item,
    attribute("Label", &Item::Label),
    attribute("Count", &Item::Count))

QOR_DEFINE_RECORD(LabelledItem,
    base<Item>(),
    attribute("Extra", &LabelledItem::Extra))

QOR_DEFINE_RECORD(Sample,
    attribute("Text", &Sample::Text),
    attribute("Signed", &Sample::Signed).as("Signed number"),
    attribute("Unsigned", &Sample::Unsigned),
    attribute("Real", &Sample::Real),
    attribute("Flag", &Sample::Flag),
    enumAttribute("Colour", &Sample::Colour),
    attribute("Capacity", &Sample::Capacity).readAsLong(),
    attribute("Shown", &Sample::Shown).shownOnly().describedAs("shown only"),
    attribute("WellText", &Sample::WellText).parameterType(ObjectInstanceXMLMarshaller::PARAMETER_TYPE_WELL_SELECT),
    attribute("Secret", &Sample::Secret).noParameter().notCompared(),
    attribute("Stamp", &Sample::Stamp).shownAs("1.0"),
    list("Names", &Sample::Names),
    list("Numbers", &Sample::Numbers).wrapperAlways(),
    list("Items", &Sample::Items),
    child("Item", &Sample::Single))

QOR_DEFINE_RECORD(Ping, fileType("Query"))

QOR_DEFINE_RECORD_FRAME(Versioned,
    attribute("Version", &Versioned::Version),
    attribute("Revision", &Versioned::Revision))

void Versioned::ToObjectInstance(ObjectInstanceXMLMarshaller::ObjectInstance &instance) const {
    qor::record::Code<Versioned>::ToObjectInstance(*this, instance);
    instance.BaseObjectDescription.Categories.front().Parameters.front().Value = "1.0";
}

void Versioned::FromObjectInstance(const ObjectInstanceXMLMarshaller::ObjectInstance &instance) {
    const std::string kept = Version;
    qor::record::Code<Versioned>::FromObjectInstance(*this, instance);
    Version = kept;
}

}  // namespace SampleRecords

QOR_DEFINE_RECORD_IN(SampleRecords::Enclosing::, Nested,
    attribute("Name", &Nested::Name),
    list("Items", &Nested::Items))

namespace SampleRecords {

std::span<const qor::RecordType> RecordTypes() {
    static constexpr const char family[] = "SampleRecords";
    static constexpr qor::RecordType types[] = {
        qor::RecordTypeOf<Item>(family),      qor::RecordTypeOf<LabelledItem>(family),
        qor::RecordTypeOf<Sample>(family),    qor::RecordTypeOf<Ping>(family),
        qor::RecordTypeOf<Versioned>(family), qor::RecordTypeOf<Enclosing::Nested>(family),
    };
    return types;
}

}  // namespace SampleRecords
