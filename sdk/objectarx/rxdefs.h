#pragma once

// The entry-point protocol: the messages that the host sends to a module.

struct AcRx {
    enum AppMsgCode {
        kNullMsg = 0,
        kInitAppMsg = 1,
        kUnloadAppMsg = 2,
        kLoadDwgMsg = 3,
        kUnloadDwgMsg = 4,
        kInvkSubrMsg = 5,
        kCfgMsg = 6,
        kEndMsg = 7,
        kQuitMsg = 8,
        kSaveMsg = 9,
        kDependencyMsg = 10,
    };

    enum AppRetCode {
        kRetOK = 0,
        kRetError = 3,
    };
};

using AcRxFunctionPtr = void (*)();

// The API generation that a module was built for: major version * 10 + minor.
// The host asks the module before it sends the first message.
constexpr unsigned ACRX_API_VERSION = 160;
