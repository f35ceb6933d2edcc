#pragma once

// Status codes of the host API. Calls that can fail return one; eOk is 0.

struct Acad {
    enum ErrorStatus {
        eOk = 0,
        eNotImplementedYet = 1,
        eNotApplicable = 2,
        eInvalidInput = 3,
        eAmbiguousInput = 4,
        eAmbiguousOutput = 5,
        eOutOfMemory = 6,
        eInvalidKey = 9,
        eDuplicateKey = 11,
        eKeyNotFound = 12,
        eNullHandle = 18,
        eNullObjectId = 23,
        eUnknownHandle = 28,
        eNoDatabase = 45,
        eNullObjectPointer = 58,
        eWasErased = 60,
        ePermanentlyErased = 61,
        eWasOpenForRead = 67,
        eWasOpenForWrite = 69,
        eNotOpenForRead = 75,
        eNotOpenForWrite = 76,
        eNotThatKindOfClass = 77,
        eInvalidIndex = 85,
        eFilerError = 110,
        eFileAccessErr = 119,
        eFileSystemErr = 122,
        eFileInternalErr = 123,
        eFileNotFound = 210,
        eDwgNeedsRecovery = 222,
        eDocumentSwitchDisabled = 428,
        eNoDocument = 441,
    };
};
