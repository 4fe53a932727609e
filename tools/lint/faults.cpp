// Faults planted for the linter: `tools/lint.sh --check` expects it to find each where it stands. "everywhere" in
// tests, too.
#include <cstring>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string made() { return "text"; }

struct Base {
  virtual ~Base() = default;
  virtual int value() const { return 1; }
};
struct Derived : Base {
  virtual int value() const { return 2; }  // everywhere: modernize-use-override
};

int Misnamed() { return 1; }  // everywhere: readability-identifier-naming

std::size_t usedAfterMove() {
  std::string text = made();
  const std::string other = std::move(text);
  return text.size() + other.size();  // everywhere: bugprone-use-after-move
}

void endless(int count) {
  const int limit = count;
  for (int index = 0; index < limit;) {  // everywhere: bugprone-infinite-loop
  }
}

bool compared(const char* text) {
  if (std::strcmp(text, "other")) return false;  // everywhere: bugprone-suspicious-string-compare
  return true;
}

int guarded() {
  static std::mutex mutex;
  const std::unique_ptr<int> unused(new int(1));
  std::lock_guard<std::mutex>{mutex};  // everywhere: bugprone-unused-raii
  unused.get();
  return *unused;
}

void emptied(std::vector<int>& numbers) {
  numbers.empty();  // everywhere: bugprone-unused-return-value
}

int* pointer() {
  return 0;  // everywhere: modernize-use-nullptr
}

std::size_t copies(const std::vector<std::string>& texts) {
  std::size_t size = 0;
  for (const auto text : texts) size += text.size();  // everywhere: performance-for-range-copy
  return size;
}

std::size_t byValue(const std::string text) {  // everywhere: performance-unnecessary-value-param
  return text.size();
}

double narrowed(int count) {
  int total = 0;
  total += 1.5 * count;  // sources: bugprone-narrowing-conversions
  return total;
}

bool assigned(int value) {
  int other = 0;
  if ((other = value)) return true;  // sources: bugprone-assignment-in-if-condition
  return other == 1;
}

std::size_t copied(const std::vector<std::string>& texts) {
  const std::string first = texts.front();  // sources: performance-unnecessary-copy-initialization
  return first.size();
}

int looped(const std::vector<int>& numbers) {
  int sum = 0;
  for (std::size_t index = 0; index < numbers.size(); ++index) {  // sources: modernize-loop-convert
    sum += numbers[index];
  }
  return sum;
}

typedef std::vector<int> Numbers;  // sources: modernize-use-using

}  // namespace
