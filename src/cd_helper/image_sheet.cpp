// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd_helper/image_sheet.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string_view>
#include <vector>

namespace tickwell::cd_helper {

namespace {

using Words = std::vector<std::string>;

constexpr std::uintmax_t kLargestSheet =
    1 << 20;  // bytes; about 20 times the size of a sheet with 99 tracks and all their names

std::string UpperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

/// The words of a line; a word in double quotes may contain blanks.
Words WordsOf(const std::string& line) {
    Words words;
    std::istringstream stream(line);
    while (stream >> std::ws && stream.peek() != std::istringstream::traits_type::eof()) {
        std::string word;
        if (stream.peek() == '"') {
            stream.get();
            std::getline(stream, word, '"');
        } else {
            stream >> word;
        }
        words.push_back(word);
    }
    return words;
}

/// The lines of a sheet that are not blank; none if the file cannot be read or is too large for a sheet.
std::vector<Words> LinesOf(const std::string& path) {
    std::vector<Words> lines;
    std::error_code error;
    if (std::filesystem::file_size(path, error) > kLargestSheet ||
        error) {  // set too if the path is not a file
        return lines;
    }
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (Words words = WordsOf(line); !words.empty()) {
            lines.push_back(std::move(words));
        }
    }
    return lines;
}

bool IsOneOf(const std::string& word, std::initializer_list<std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

std::string WordAt(const Words& words, std::size_t index) {
    return index < words.size() ? words[index] : std::string();
}

/// The sound file that libcdio reads for a cue sheet.
std::filesystem::path FileBeside(const std::filesystem::path& sheet) {
    return std::filesystem::path(sheet).replace_extension(sheet.extension() == ".CUE" ? ".BIN" : ".bin");
}

/// Whether opening a file could block forever, like a pipe.
bool CouldBlock(const std::filesystem::path& file) {
    std::error_code ignored;
    const auto status = std::filesystem::status(file, ignored);
    return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

/// Whether a sheet names a different file from the one beside it, which libcdio reads. A name without a file
/// is accepted: sheet and sound file may have been renamed together.
bool NamesAnotherFile(const std::filesystem::path& sheet, const std::string& name) {
    std::error_code ignored;
    const auto taken = FileBeside(sheet);
    const auto named = sheet.parent_path() / name;
    return std::filesystem::exists(named, ignored) && !std::filesystem::equivalent(named, taken, ignored);
}

}  // namespace

ImageSheet ReadCueSheet(const std::string& path) {
    ImageSheet sheet;
    int files = 0;
    bool isWhole = true;
    for (const Words& words : LinesOf(path)) {
        const std::string keyword = UpperCase(words.front());
        if (keyword == "FILE") {
            ++files;
            const std::string kind = UpperCase(words.back());
            sheet.order = kind == "MOTOROLA" ? ByteOrder::Big : ByteOrder::Little;
            isWhole = isWhole && words.size() == 3 && IsOneOf(kind, {"BINARY", "MOTOROLA"}) &&
                      !NamesAnotherFile(path, words[1]);
        } else if (keyword == "TRACK") {
            isWhole = isWhole && IsOneOf(UpperCase(WordAt(words, 2)), {"AUDIO", "MODE1/2352", "MODE2/2352"});
        }
    }
    sheet.isPlayable = files == 1 && isWhole && !CouldBlock(FileBeside(path));
    return sheet;
}

ImageSheet ReadTocSheet(const std::string& path) {
    ImageSheet sheet{false, ByteOrder::Big};
    std::string file;
    bool isWhole = true;
    for (const Words& words : LinesOf(path)) {
        const std::string& keyword = words.front();
        if (IsOneOf(keyword, {"FILE", "AUDIOFILE", "DATAFILE"})) {
            const std::string name = WordAt(words, 1);
            isWhole = isWhole && (file.empty() || file == name);
            file = name;
        } else if (keyword == "TRACK") {
            isWhole = isWhole && IsOneOf(WordAt(words, 1), {"AUDIO", "MODE1_RAW", "MODE2_RAW"});
        } else if (IsOneOf(keyword, {"SILENCE", "ZERO", "FIFO", "PREGAP"})) {
            isWhole = false;
        }
    }
    const std::string extension = UpperCase(std::filesystem::path(file).extension().string());
    sheet.isPlayable = !file.empty() && isWhole && extension != ".WAV" && !CouldBlock(file);
    return sheet;
}

}  // namespace tickwell::cd_helper
