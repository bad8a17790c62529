#pragma once
// The program's name and version, as the title, the log and the About box show them.
namespace qv {

inline constexpr const char* ProductName = "Quorvanis";
inline constexpr const char* ProgramVersion = "1.58";

}  // namespace qv
