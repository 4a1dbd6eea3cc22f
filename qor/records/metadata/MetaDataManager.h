// The enclosing class of the device metadata records: what a device declares
// about itself, the messages between the scheduler, its plug-ins, devices and
// robot drivers, and the compile and printer records. It holds no state: the
// records are nested in it (each defined in a header of its own), with the
// enumerations they carry, the name tables editors show, and a few functions
// that rebuild parameter lists and carry labware queries.
#pragma once

#include <string>
#include <vector>

#include "qor/marshal/Record.h"

namespace ObjectInstanceXMLMarshaller {
class Parameter;
}

class MetaDataManager {
public:
    // How a command shows in the protocol editor: a set of bits, named by
    // EditorTypeNames.
    enum EditorType : int {
        EDITOR_TYPE_NONE = 0,
        EDITOR_TYPE_HIDDEN = 1,
        EDITOR_TYPE_PRIMARY = 2,
        EDITOR_TYPE_SECONDARY = 4,
        EDITOR_TYPE_PRE_POST = 8,
        EDITOR_TYPE_OMNIPRESENT = 16,
    };

    // How a location may be reached: a set of bits. LocationTypeNames names
    // the values, though not at the indexes the bits give (see there).
    enum LocationType : int {
        LOCATION_TYPE_NO_ACCESS = 0,
        LOCATION_TYPE_NORMAL = 1,
        LOCATION_TYPE_STACK = 2,
        LOCATION_TYPE_STORAGE = 4,
        LOCATION_TYPE_INCUBATE = 8,
        LOCATION_TYPE_LIDDING = 16,
    };

    // Carried as integers whose values the writers of metadata files, the
    // scheduler and the drivers agree on; the library gives them no names.
    enum CompilerAction : int {};
    enum LogActionOptions : int {};
    enum PauseActionOptions : int {};
    enum MiscAttributes : int {};
    enum ExclusivityType : int {};
    enum SpeedType : int {};
    enum LidderType : int {};
    enum CompilerErrorType : int {};

    // Device and command metadata.
    class MetaData;
    class Version;
    class Device;
    class Command;
    class MeasurementType;
    class MeasurementTypeVector;

    // Locations, teachpoints and storage.
    class Location;
    class LocationVector;
    class LocationAction;
    class Layout;
    class LayoutVector;
    class Teachpoint;
    class TeachpointsData;
    class DeviceLocationTeachpoint;
    class DeviceLocationTeachpoints;
    class RobotMetaData;
    class StorageDimension;
    class StorageDimensions;
    class StorageLocationCoordinate;
    class StorageLocation;
    class IsStackFull;
    class ScanStackData;
    class Barcode;
    class LocationAvailable;
    class AsyncTaskList;

    // The robot driver's methods, as an input and an output record each.
    class IRobotDriver_Move_Input;
    class IRobotDriver_Move_Output;
    class IRobotDriver_DelidRelid_Input;
    class IRobotDriver_DelidRelid_Output;
    class IRobotDriver_CheckPlatePresent_Input;
    class IRobotDriver_CheckPlatePresent_Output;
    class IRobotDriver_GetPlatePresentResult_Input;
    class IRobotDriver_GetPlatePresentResult_Output;
    class IRobotDriver_CheckBarCode_Input;
    class IRobotDriver_CheckBarCode_Output;
    class IRobotDriver_GetSimulationTimes_Input;
    class IRobotDriver_GetSimulationTimes_Output;
    class IRobotDriver_GetSpeed_Input;
    class IRobotDriver_GetSpeed_Output;
    class IRobotDriver_SetSpeed_Input;
    class IRobotDriver_SetSpeed_Output;
    class IRobotDriver_GetTeachpoints_Input;
    class IRobotDriver_GetTeachpoints_Output;

    // Queries, updates and compile records.
    class Query;
    class Response;
    class Update;
    class UpdateParameter;
    class ObjectDataChanged;
    class CompileError;
    class CompileResult;
    struct CompileLabels;

    // Printer metadata.
    class PrinterFieldMetaData;
    class PrinterFormatMetaData;
    class PrinterMetaData;

    // The tabs of the device and task palette: the values of the fields
    // PreferredTab of Device and Command.
    static const char *const PreferredTabs[7];
    // Indexed by an EditorType value: the names of its bits, lowest first,
    // joined by " & "; "none" for 0.
    static const char *const EditorTypeNames[32];
    // Indexed by a LocationType value. Entry 6 holds two names run together,
    // so every later entry stands one place below its bits, and there are 31
    // entries, not 32; entry 22 lacks "access" and 28 to 30 read "inclubate".
    // The texts are part of the suite's vocabulary and stay as they are.
    static const char *const LocationTypeNames[31];

    // The built-in parameters of a compiled protocol's tasks. The first three
    // build a generated parameter's name from a device and a location or plate.
    static constexpr char DeviceToUse[] = "Device to use";
    static constexpr char LocationSuffix[] = ", location";
    static constexpr char PlateSuffix[] = ", plate";
    static constexpr char NextTaskCommandName[] = "Next task command name";
    static constexpr char NextTaskUsesSamePlate[] = "Next task uses same plate";

    // Rebuilds parameters from the elements Parameters/Parameter under node.
    // Attributes a Parameter lacks among Description, ValueToDisplay,
    // Category, Scriptable, Style, Type and Hide_if are added to the node,
    // empty. Style is limited to 0..2 and Type to 0..33. With keepValues the
    // values and scripts of the old list survive, by name: a well selection
    // keeps its wells under the new head mode, a path, optional path or
    // directory keeps a non-empty old value, any other type takes the old
    // value even when it is empty or missing.
    static void ParseParameterNodes(XMLParser::XMLNode &node,
                                    std::vector<ObjectInstanceXMLMarshaller::Parameter> &parameters,
                                    bool keepValues);

    // The stamped Query document asking for one labware's attributes.
    static void GenerateLabwareAttributeQuery(const std::string &labware, std::string &queryXml);
    // The value of attribute in the answer to that query. False, with the
    // reason in error, when the answer isn't one or lacks the attribute.
    // Never throws.
    static bool ParseLabwareAttributeResponse(const std::string &responseXml, const std::string &labware,
                                              const std::string &attribute, std::string &value,
                                              std::string &error);
    // The Labware attribute of the first Plate of a plate information
    // document. False, with the reason in error, otherwise. Never throws.
    static bool ExtractLabwareNameFromPlateInfo(const std::string &plateInfoXml, std::string &labware,
                                                std::string &error);

    // Builds, writes and reads back a device description a few times; it
    // exercises the record code and has no other effect.
    static void Test();
};
