// Makes the three songs of data/samples, and the compilation in data that lists them.
//
//     make-songs FOLDER            writes the files into that folder of the program and its samples
//     make-songs --check FOLDER    says which files there differ from what it would write
#include "tools/Delivery.h"
#include "tools/songs/SongFile.h"

#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace {

// The folder is told from the program's own, so that the list holds wherever that is.
makers::Bytes Compilation(const std::vector<songs::Song> &songs)
{
    std::string image = std::string("\x01") + "samples" + '\0';
    for (const songs::Song &song : songs) {
        image += song.file + '\0';
    }
    image += '\xFF';
    return {image.begin(), image.end()};
}

int Make(const std::string &folder, bool check)
{
    const std::vector<songs::Song> songs{songs::LanternWaltz(), songs::NightFerry(), songs::ThirdRail()}; // as the player sorts them
    std::vector<makers::MadeFile> files{{"c-Velluto.cmp", Compilation(songs)}};
    for (const songs::Song &song : songs) {
        files.push_back({"samples/" + song.file, songs::MidiFile(song)});
    }
    return makers::Deliver(files, folder, check, "make-songs") == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    const std::vector<std::string> words(argv + 1, argv + argc);
    const bool check = !words.empty() && words.front() == "--check";
    if (words.size() != (check ? 2U : 1U)) {
        std::cerr << "usage: make-songs [--check] FOLDER\n";
        return 2;
    }
    try {
        return Make(words.back(), check);
    } catch (const std::exception &wrong) {
        std::cerr << "make-songs: " << wrong.what() << '\n';
        return 1;
    }
}
