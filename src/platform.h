#pragma once

// Every file that is shared with the platform. SWC_PLATFORM_ROOT goes in front of the absolute
// paths; it is empty on the head unit and "." at the desk, where the working directory stands in
// for the root of the unit.
#ifndef SWC_PLATFORM_ROOT
#define SWC_PLATFORM_ROOT ""
#endif

namespace Platform {

constexpr char englishTexts[] = SWC_PLATFORM_ROOT "/application/languages/Velmora_en_gb.qm";
constexpr char chineseTexts[] = SWC_PLATFORM_ROOT "/application/languages/Velmora_zh_rCN.qm";

// Relative on the head unit too: it is resolved against the working directory.
constexpr char settings[] = "media/flash/nvm/Corvane/UserData.ini";

constexpr char reading[] = SWC_PLATFORM_ROOT "/media/flash/nvm/swc_keys";
constexpr char flag[] = SWC_PLATFORM_ROOT "/media/flash/nvm/swc_flags";
constexpr char configuration[] = SWC_PLATFORM_ROOT "/media/flash/nvm/direction.json";
constexpr char backup[] = SWC_PLATFORM_ROOT "/media/flash/nvm/direction.bak";

} // namespace Platform
