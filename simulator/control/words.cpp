#include "simulator/control/words.hpp"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <utility>

#include "simulator/device/error.hpp"

namespace sim {
namespace {

/// A line's words, and in what state its end leaves the reading.
struct Split {
  std::vector<std::string> words;
  std::size_t start = 0;  ///< of the last word
  bool within = false;    ///< the last word may go on
  bool comment = false;
  char quote = 0;  ///< the one that is open
};

Split split(const std::string& line) {
  Split state;
  for (std::size_t index = 0; index < line.size(); ++index) {
    const char c = line[index];
    const bool blank = c == ' ' || c == '\t' || c == '\r';
    if (state.quote == 0 && blank) {
      state.within = false;
      continue;
    }
    if (state.quote == 0 && !state.within && c == '#') {
      state.comment = true;
      break;
    }
    if (!state.within) {
      state.words.emplace_back();
      state.start = index;
    }
    state.within = true;
    if (state.quote == 0 && (c == '"' || c == '\'')) state.quote = c;
    else if (c == state.quote) state.quote = 0;
    else if (c == '\\' && state.quote != '\'' && index + 1 < line.size()) state.words.back() += line[++index];
    else state.words.back() += c;
  }
  return state;
}

std::string lowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

/// How many bytes have to be changed, put in, taken out or exchanged with the next to make one text of the other.
std::size_t distance(std::string_view a, std::string_view b) {
  std::vector<std::vector<std::size_t>> table(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      std::size_t& least = table[i][j];
      if (i == 0 || j == 0) {
        least = i + j;
        continue;
      }
      least =
          std::min({table[i - 1][j] + 1, table[i][j - 1] + 1, table[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      const bool exchanged = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (exchanged) least = std::min(least, table[i - 2][j - 2] + 1);
    }
  }
  return table[a.size()][b.size()];
}

/// Identifiers begin alike: what they have in common up to a dot says nothing.
std::size_t commonDomain(std::string_view a, std::string_view b) {
  const auto end = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
  return a.substr(0, static_cast<std::size_t>(end - a.begin())).rfind('.') + 1;
}

}  // namespace

std::vector<std::string> splitWords(const std::string& line) {
  Split state = split(line);
  if (state.quote != 0) throw BadInput("a quote is not closed");
  return std::move(state.words);
}

UnfinishedLine splitUnfinished(const std::string& line) {
  Split state = split(line);
  UnfinishedLine unfinished{.words = std::move(state.words), .start = line.size(), .comment = state.comment};
  if (state.within && !state.comment) {
    unfinished.last = std::move(unfinished.words.back());
    unfinished.words.pop_back();
    unfinished.start = state.start;
  }
  return unfinished;
}

std::string quoted(const std::string& word) {
  if (!word.empty() && word.front() != '#' && word.find_first_of(" \t\r\"'\\") == std::string::npos) return word;
  std::string text = "\"";
  for (const char c : word) {
    if (c == '"' || c == '\\') text += '\\';
    text += c;
  }
  return text + '"';
}

std::vector<std::string> nearest(const std::string& word, const std::vector<std::string>& known) {
  constexpr std::size_t most = 3;
  const std::string wanted = lowerCase(word);
  std::vector<std::pair<std::size_t, std::string>> found;
  for (const std::string& candidate : known) {
    const std::string name = lowerCase(candidate);
    const std::size_t same = commonDomain(wanted, name);
    const std::string_view mine = std::string_view(wanted).substr(same);
    const std::string_view other = std::string_view(name).substr(same);
    const bool part = mine.size() > 1 && other.find(mine) != std::string_view::npos;
    const std::size_t far = part ? 1 : distance(mine, other);
    if (far <= std::max<std::size_t>(1, mine.size() / 3)) found.emplace_back(far, candidate);
  }
  std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (std::size_t index = 0; index < std::min(most, found.size()); ++index) names.push_back(found[index].second);
  return names;
}

std::string joined(const std::vector<std::string>& words, const std::string& between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

}  // namespace sim
