#pragma once

// The files that are shared with the platform. SWC_PLATFORM_ROOT is put in front of the absolute
// paths: it is empty on a head unit and "." in the desk build, which works below the current
// directory.
#ifndef SWC_PLATFORM_ROOT
#define SWC_PLATFORM_ROOT ""
#endif

namespace Platform {

constexpr char englishTexts[] = SWC_PLATFORM_ROOT "/application/languages/Velmora_en_gb.qm";
constexpr char chineseTexts[] = SWC_PLATFORM_ROOT "/application/languages/Velmora_zh_rCN.qm";

// Always relative to the working directory.
constexpr char settings[] = "media/flash/nvm/Corvane/UserData.ini";

constexpr char reading[] = SWC_PLATFORM_ROOT "/media/flash/nvm/swc_keys";
constexpr char flag[] = SWC_PLATFORM_ROOT "/media/flash/nvm/swc_flags";
constexpr char configuration[] = SWC_PLATFORM_ROOT "/media/flash/nvm/direction.json";
constexpr char backup[] = SWC_PLATFORM_ROOT "/media/flash/nvm/direction.bak";

} // namespace Platform
