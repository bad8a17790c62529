#pragma once
// The diagram: the position as an HTML page of 64 pictures in a bordered
// table, with the comment of the position below it, written to diagram.html.
// The page refers to the pictures as "pieces/<name>.bmp"; the program ships
// them and puts a copy beside the page when one is missing.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"

namespace qv {

inline constexpr const char* DiagramFileName = "diagram.html";
inline constexpr const char* PiecesFolderName = "pieces";

// The picture of one square: the piece (or "square") on a dark or light
// square. With pieces on one colour only, pieces always use the dark picture.
std::string DiagramPicture(int content, bool darkSquare, int piecesOnBlack);

// Every picture name a diagram may use.
const std::vector<std::string>& DiagramPictureNames();

// The page, a line at a time ending in "\n": the board as the screen shows
// it (turned or not), then the comment a line at a time (CR LF or LF).
std::string DiagramText(const Game& g, std::string_view comment);

// Writes diagram.html into `folder` and copies the pictures that are missing
// there from the data folder's pieces folder. False when the page could not
// be written.
bool WriteDiagram(const Game& g, std::string_view comment, const std::filesystem::path& folder,
                  const std::filesystem::path& dataFolder);

}  // namespace qv
