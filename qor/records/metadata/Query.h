// A question from a plug-in, a device or the scheduler. Category names the
// subject, Parameters carry what the asker and the answerer agree on; the
// answer is a Response. Written as a document of the file type "Query".
#pragma once

#include "qor/records/metadata/MessageFields.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Query : public MetaDataManagerBase, public qor::metadata::MessageFields {
    QOR_RECORD(Query)
    // Categories.
    static constexpr char QueryCategoryInterPlugin[] = "InterPlugin";
    static constexpr char QueryCategoryLocationToTeachpoints[] = "LocationToTeachpoints";
    static constexpr char QueryCategoryDeviceLocationTeachpoints[] = "DeviceLocationTeachpoints";
    static constexpr char QueryCategoryAllDeviceInfo[] = "AllDeviceInfo";
    static constexpr char QueryCategoryLocationInformation[] = "LocationInformation";
    static constexpr char QueryCategoryTeachpointInformation[] = "TeachpointInformation";
    static constexpr char QueryCategoryIsDeviceManagerDirty[] = "IsDeviceManagerDirty";
    static constexpr char QueryCategoryHelpAssociation[] = "HelpAssociation";
    static constexpr char QueryCategorySystemPlateInformation[] = "SystemPlateInformation";
    static constexpr char QueryCategoryGetJavascriptVariable[] = "GetJavascriptVariable";
    static constexpr char QueryCategoryGetRunSetStatus[] = "GetRunSetStatus";
    static constexpr char QueryCategoryGetDeviceName[] = "GetDeviceName";
    static constexpr char QueryCategoryPlateVolume[] = "PlateVolume";
    static constexpr char QueryCommandParameter[] = "CommandParameter";
    static constexpr char QueryCategoryGetLabware[] = "Labware";
    static constexpr char QueryCategoryGetScanBarcode[] = "ScanBarcode";
    static constexpr char QueryCategoryGetBarcode[] = "Barcode";
    static constexpr char QueryCategoryGetIOManagerPointInput[] = "GetIOManagerPointInput";
    static constexpr char QueryCategoryPipetteTechniques[] = "PipetteTechniques";
    static constexpr char QueryCategoryGetProductInfo[] = "GetProductInfo";
    // Parameter names.
    static constexpr char QueryParameterPlateName[] = "PlateName";
    static constexpr char QueryParameterVariableName[] = "VariableName";
    static constexpr char QueryParameterProtocolName[] = "ProtocolName";
};
