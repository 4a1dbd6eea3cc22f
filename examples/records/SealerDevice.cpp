// A plate sealer's driver tells the scheduler what it is and answers its
// questions; a plug-in reads the description and asks. Both sides speak only
// documents, so they can live in different programs: here they share one.
//
//   example_records [FILE]   runs the conversation; with FILE, also writes
//                            the sealer's description there (try
//                            `qor record show FILE`).
#include <cstdio>
#include <fstream>
#include <string>

#include "qor/records/metadata.h"

using ObjectInstanceXMLMarshaller::Parameter;
using M = MetaDataManager;

namespace {

// ---- the driver's side

class SealerDriver {
public:
    // The device description the driver ships: the device, its locations and
    // settings, and the commands protocols may use.
    std::string Describe() const {
        M::MetaData description;
        description.Version = "1.0";
        M::Device &device = description.Device;
        device.Name = "Sealer";
        device.Description = "Heat sealer with a plate stack";
        device.PreferredTab = M::PreferredTabs[2];  // "Plate Handling"
        device.RegistryName = "Sealer";
        Parameter::AddParameterInt(device.Parameters, "Port", 3L, "serial port number");
        for (const StackLocation &location : kLocations) {
            M::Location &entry = device.Locations.emplace_back();
            entry.Name = location.name;
            entry.Type = location.type;
            entry.MaxStackHeight = location.maxStackHeight;
        }

        M::Command &seal = description.Commands.emplace_back();
        seal.Name = "Seal";
        seal.DisplayName = "Seal plate";
        seal.Editor = M::EDITOR_TYPE_PRIMARY;
        Parameter::AddParameterFloat(seal.Parameters, "Temperature", 170.0, "degrees Celsius");
        Parameter::AddParameterFloat(seal.Parameters, "Time", 2.5, "seconds");
        seal.Parameters.back().Units = "s";
        seal.Locations = {"Stage"};

        M::Command &peel = description.Commands.emplace_back();
        peel.Name = "Peel";
        peel.DisplayName = "Peel seal";
        peel.Locations = {"Stage"};
        return description.ToXMLString();
    }

    // A Query document in, a Response document out. Each category the driver
    // knows has its handler; any other gets an empty answer of its category.
    std::string Answer(const std::string &queryText) const {
        const M::Query query(queryText);
        M::Response response;
        response.Category = query.Category;
        response.Source = query.Destination;
        response.Destination = query.Source;
        for (const Handler &handler : kHandlers) {
            if (query.Category == handler.category) (this->*handler.answer)(query, response.Parameters);
        }
        return response.ToXMLString();
    }

private:
    struct StackLocation {
        const char *name;
        M::LocationType type;
        double maxStackHeight;
    };
    static constexpr StackLocation kLocations[] = {
        {"Stage", M::LOCATION_TYPE_NORMAL, 460.0},
        {"Stack", M::LOCATION_TYPE_STACK, 220.0},
    };

    void LocationInformation(const M::Query &query, std::vector<Parameter> &answer) const {
        std::string name;
        Parameter::GetParameterString(query.Parameters, "Location", name);
        for (const StackLocation &location : kLocations) {
            if (name != location.name) continue;
            Parameter::AddParameterString(answer, "Type", M::LocationTypeNames[location.type]);
            Parameter::AddParameterFloat(answer, "MaxStackHeight", location.maxStackHeight);
        }
    }
    void DeviceName(const M::Query &, std::vector<Parameter> &answer) const {
        Parameter::AddParameterString(answer, M::Response::ResponseDeviceName, "Sealer");
    }
    void Labware(const M::Query &query, std::vector<Parameter> &answer) const {
        std::string labware;
        Parameter::GetParameterString(query.Parameters, "Labware_Entry", labware);
        if (labware == "96 PCR") Parameter::AddParameterFloat(answer, "Height", 15.1);
    }

    struct Handler {
        const char *category;
        void (SealerDriver::*answer)(const M::Query &, std::vector<Parameter> &) const;
    };
    static constexpr Handler kHandlers[] = {
        {M::Query::QueryCategoryLocationInformation, &SealerDriver::LocationInformation},
        {M::Query::QueryCategoryGetDeviceName, &SealerDriver::DeviceName},
        {M::Query::QueryCategoryGetLabware, &SealerDriver::Labware},
    };
};

// ---- the plug-in's side

// A name table's entry, or "?" for a value from a document that it lacks.
template <std::size_t N>
const char *Named(const char *const (&table)[N], int value) {
    return value >= 0 && static_cast<std::size_t>(value) < N ? table[value] : "?";
}

int failures = 0;
void Expect(bool ok, const char *what) {
    if (!ok) {
        std::fprintf(stderr, "unexpected: %s\n", what);
        ++failures;
    }
}

}  // namespace

int main(int argc, char **argv) {
    const SealerDriver driver;
    const std::string text = driver.Describe();
    if (argc > 1) std::ofstream(argv[1], std::ios::binary) << text;

    // What the device declares.
    const M::MetaData description(text);
    const M::Device &device = description.Device;
    std::printf("%s (%s), tab \"%s\"\n", device.Name.c_str(), device.Description.c_str(), device.PreferredTab.c_str());
    for (const M::Location &location : device.Locations) {
        std::printf("  location %-6s %s\n", location.Name.c_str(), Named(M::LocationTypeNames, location.Type));
    }
    for (const M::Command &command : description.Commands) {
        std::printf("  command %-5s \"%s\", %s, %zu parameter(s)\n", command.Name.c_str(), command.DisplayName.c_str(),
                    Named(M::EditorTypeNames, command.Editor), command.Parameters.size());
    }
    Expect(description.Commands.size() == 2 && device.Locations.size() == 2, "the description read back whole");

    // Asking about a location.
    M::Query query;
    query.Category = M::Query::QueryCategoryLocationInformation;
    query.Source = "Scheduler";
    query.Destination = device.Name;
    Parameter::AddParameterString(query.Parameters, "Location", "Stack");
    const M::Response response(driver.Answer(query.ToXMLString()));
    double height = 0;
    std::string type;
    Expect(Parameter::GetParameterFloat(response.Parameters, "MaxStackHeight", height) && height == 220.0,
           "the stack's height");
    Expect(Parameter::GetParameterString(response.Parameters, "Type", type) && type == "stack access",
           "the stack's type");
    std::printf("Stack: %s, up to %g high (answer to %s)\n", type.c_str(), height, response.Destination.c_str());

    // Asking about a labware, with the library's query and answer helpers.
    std::string labwareQuery, value, error;
    M::GenerateLabwareAttributeQuery("96 PCR", labwareQuery);
    const bool found = M::ParseLabwareAttributeResponse(driver.Answer(labwareQuery), "96 PCR", "Height", value, error);
    Expect(found && value == "15.1", "the labware's height");
    Expect(!M::ParseLabwareAttributeResponse(driver.Answer(labwareQuery), "96 PCR", "Depth", value, error),
           "no depth in the answer");
    std::printf("96 PCR: height %s; depth: %s\n", value.c_str(), error.c_str());

    // A protocol's task keeps its user's settings when the driver's
    // description changes: Refresh takes the new definition by name.
    M::Command task = description.Commands.front();
    Parameter::SetParameterFloat(task.Parameters, "Temperature", 165.0);
    Expect(task.Refresh(text) && task.GetParameter("Temperature") == "165", "the user's temperature survives");
    std::printf("Seal task after refresh: Temperature %s\n", task.GetParameter("Temperature").c_str());

    return failures == 0 ? 0 : 1;
}
