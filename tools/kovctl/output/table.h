// SPDX-License-Identifier: MIT
#ifndef L5KOV_TOOLS_KOVCTL_OUTPUT_TABLE_H_
#define L5KOV_TOOLS_KOVCTL_OUTPUT_TABLE_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kovctl {

/// Columns of a terminal that a UTF-8 text takes: one per character, none for escape sequences.
std::size_t displayWidth(std::string_view text);

/// Rows of texts in columns that are as wide as their widest cell.
class Table {
 public:
  enum class Align { kLeft, kRight };
  struct Column {
    std::string title;
    Align align = Align::kLeft;
  };

  explicit Table(std::vector<Column> wanted) : columns(std::move(wanted)) {}

  /// Cells may come from outside; nothing in them leaves its cell.
  void add(std::vector<std::string> cells);
  /// Cells of this program's own, which may be Console::styled().
  void addStyled(std::vector<std::string> cells);
  bool isEmpty() const { return rows.empty(); }
  /// With a line of titles, two blanks between columns, and no blanks at the ends of lines.
  std::string text() const;

 private:
  std::vector<Column> columns;
  std::vector<std::vector<std::string>> rows;
};

/// "Model        OR-C321": what belongs to one thing, line by line.
std::string properties(const std::vector<std::pair<std::string, std::string>>& lines);

}  // namespace kovctl

#endif  // L5KOV_TOOLS_KOVCTL_OUTPUT_TABLE_H_
