// The program folder that every road starts from: small stand-ins for the delivered files, one
// input text, and the book that is found on the disk. Made once in a process.
#pragma once

#include <string>

namespace faults {

// Copies it into a folder of the host that is there and empty.
void CopyProgramFolder(const std::string& hostFolder);
// A file of it ("media/song.mp3").
std::string ProgramFile(const std::string& below);

}  // namespace faults
