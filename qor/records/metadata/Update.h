// A notice that needs no answer: Category names what happened, Parameters
// carry the details. Written as a document of the file type "Update".
#pragma once

#include "qor/records/metadata/MessageFields.h"
#include "qor/records/metadata/MetaDataManager.h"

class MetaDataManager::Update : public MetaDataManagerBase, public qor::metadata::MessageFields {
    QOR_RECORD(Update)
    // Categories. "TermSucess" is the text on the wire, misspelt as it is.
    static constexpr char UpdateCategoryRackInfo[] = "RackInfo";
    static constexpr char UpdateCategoryBarCode[] = "Barcode";
    static constexpr char UpdateCategoryMenu[] = "Menu";
    static constexpr char UpdateCategoryStackHeight[] = "StackHeight";
    static constexpr char UpdateCategoryVolume[] = "Volume";
    static constexpr char UpdateCategoryRunsetAdd[] = "RunsetAdd";
    static constexpr char UpdateCategoryTerminateProtocol[] = "TermSucess";
    static constexpr char UpdateCategoryLiquidTransferComplete[] = "LiquidTransferComplete";
    static constexpr char UpdateCategoryRunScript[] = "RunScript";
    static constexpr char UpdateCategoryInventoryPlateBarcodes[] = "InventoryPlateBarcodes";
    static constexpr char UpdateCategorySetIOManagerPointDigitalOutput[] = "SetIOManagerPointDigitalOutput";
    static constexpr char UpdateCategoryErrorAbortRetryIgnoreNonBlocking[] = "ErrorAbortRetryIgnoreNonBlocking";
    static constexpr char UpdateCategoryAsyncTaskStarted[] = "AsyncTaskStarted";
    static constexpr char UpdateCategoryAsyncTaskFinished[] = "AsyncTaskFinished";
    static constexpr char UpdateCommandParameters[] = "CommandParameters";
    // Parameter names.
    static constexpr char UpdateParameterInitialStackHeight[] = "InitialStackHeight";
    static constexpr char UpdateParameterErrorDescription[] = "Async_ErrorDescription";
    static constexpr char UpdateParameterAsyncTaskID[] = "Async_TaskID";
    static constexpr char UpdateParameterAsyncLocation[] = "Async_Location";
    static constexpr char UpdateParameterCommandMetaData[] = "Async_CommandMetaData";
    static constexpr char UpdateParameterAsyncTaskZelkorID[] = "Async_TaskZelkorID";
    static constexpr char UpdateParameterScript[] = "Script";
    static constexpr char UpdateParameterProtocolName[] = "ProtocolName";
};
