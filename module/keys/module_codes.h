#pragma once

// The two-letter codes of the host's kinds of hardware module. This module's is "CA".

#include <string>

const std::string kModuleCodeAc = "AC";
const std::string kModuleCodeAu = "AU";
const std::string kModuleCodeBa = "BA";
const std::string kModuleCodeBt = "BT";
const std::string kModuleCodeCamera = "CA";
const std::string kModuleCodeCp = "CP";
const std::string kModuleCodeDi = "DI";
const std::string kModuleCodeFn = "FN";
const std::string kModuleCodeFp = "FP";
const std::string kModuleCodeHd = "HD";
const std::string kModuleCodeKb = "KB";
const std::string kModuleCodeMb = "MB";
const std::string kModuleCodeMd = "MD";
const std::string kModuleCodeMe = "ME";
const std::string kModuleCodeMo = "MO";
const std::string kModuleCodeOd = "OD";
const std::string kModuleCodePe = "PE";
const std::string kModuleCodeRd = "RD";
const std::string kModuleCodeSc = "SC";
const std::string kModuleCodeSe = "SE";
const std::string kModuleCodeTd = "TD";
const std::string kModuleCodeTs = "TS";
const std::string kModuleCodeVc = "VC";
const std::string kModuleCodeWe = "WE";
const std::string kModuleCodeWf = "WF";
