// SPDX-License-Identifier: MIT
#include "output/table.h"

#include <algorithm>

#include "output/plain_text.h"

namespace kovctl {
namespace {

void appendCell(std::string& line, std::string_view cell, std::size_t width, Table::Align align) {
  const std::string blanks(width - std::min(width, displayWidth(cell)), ' ');
  if (!line.empty()) line += "  ";
  line += align == Table::Align::kRight ? blanks + std::string(cell) : std::string(cell) + blanks;
}

std::string withoutBlanksAtEnd(std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

}  // namespace

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\x1b') {
      i = std::min(text.find('m', i), text.size() - 1);
    } else if ((static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) {
      ++width;
    }
  }
  return width;
}

void Table::add(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = plainLine(cell);
  rows.push_back(std::move(cells));
}

void Table::addStyled(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }

std::string Table::text() const {
  std::vector<std::size_t> widths;
  for (const Column& column : columns) widths.push_back(displayWidth(column.title));
  for (const auto& row : rows) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      widths[i] = std::max(widths[i], displayWidth(row.at(i)));
    }
  }
  std::string result;
  std::string line;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    appendCell(line, columns[i].title, widths[i], columns[i].align);
  }
  result += withoutBlanksAtEnd(line);
  for (const auto& row : rows) {
    line.clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      appendCell(line, row[i], widths[i], columns[i].align);
    }
    result += withoutBlanksAtEnd(line);
  }
  return result;
}

std::string properties(const std::vector<std::pair<std::string, std::string>>& lines) {
  std::size_t width = 0;
  for (const auto& [name, value] : lines) width = std::max(width, displayWidth(name));
  std::string result;
  for (const auto& [name, value] : lines) {
    std::string line;
    appendCell(line, name, width, Table::Align::kLeft);
    result += withoutBlanksAtEnd(line + "  " + plainLine(value));
  }
  return result;
}

}  // namespace kovctl
