#include "Survey.h"

#include <algorithm>

namespace {

/// Stands among the rows where the clean-up code has its place.
constexpr TextView CleanUpMark = u"(clean-up)";

std::vector<TextView> RowsWithMark(const std::vector<Text>& keys, std::size_t cleanUp) {
  std::vector<TextView> rows(keys.begin(), keys.end());
  if (cleanUp > 0) rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(cleanUp), CleanUpMark);
  return rows;
}

Text KeyOf(const OwnHandler& handler) {
  std::vector<Text> keys;
  for (const FrameRow& row : handler.rows) keys.push_back(row.key);
  Text key;
  for (const TextView row : RowsWithMark(keys, handler.cleanUp)) key.append(row).append(u"\n");
  return key;
}

}  // namespace

std::size_t Shape::Adoptable() const {
  return static_cast<std::size_t>(std::count_if(
      members.begin(), members.end(), [](const Member& member) { return !member.obstacle; }));
}

void Survey::Add(std::size_t id, OwnHandler handler) {
  ++mCount;
  const auto [place, isNew] = mShapes.try_emplace(KeyOf(handler));
  Gathered& gathered = place->second;
  Shape& shape = gathered.shape;
  if (isNew) {
    gathered.order = mShapes.size();
    gathered.forms.resize(handler.rows.size());
    shape.above = handler.above;
    shape.cleanUp = handler.cleanUp;
    for (const FrameRow& row : handler.rows) shape.rows.push_back(row.key);
  }
  for (std::size_t i = 0; i < handler.rows.size(); ++i) {
    RowForm& form = gathered.forms[i][LowerCase(handler.rows[i].text)];
    if (form.members.empty()) form.text = std::move(handler.rows[i].text);
    form.members.push_back(shape.members.size());
  }
  shape.behindDeclarations += handler.behindCode;
  std::optional<FoundObstacle> first;
  if (!handler.obstacles.empty()) first = handler.obstacles.front();
  shape.members.push_back({id, first});
}

std::vector<Shape> Survey::Finish() {
  std::vector<Gathered*> order;
  for (auto& [key, gathered] : mShapes) order.push_back(&gathered);
  std::sort(order.begin(), order.end(), [](const Gathered* left, const Gathered* right) {
    const std::size_t count = left->shape.members.size(), other = right->shape.members.size();
    return count != other ? count > other : left->order < right->order;
  });
  std::vector<Shape> shapes;
  for (Gathered* gathered : order) {
    for (Forms& forms : gathered->forms) {
      std::vector<RowForm>& row = gathered->shape.forms.emplace_back();
      for (auto& [lower, form] : forms) row.push_back(std::move(form));
      std::stable_sort(row.begin(), row.end(), [](const RowForm& left, const RowForm& right) {
        return left.members.size() > right.members.size();
      });
    }
    shapes.push_back(std::move(gathered->shape));
  }
  mShapes.clear();
  return shapes;
}

std::optional<RowDifference> OneRowApart(const Shape& shape, const Shape& other) {
  const std::vector<TextView> mine = RowsWithMark(shape.rows, shape.cleanUp);
  const std::vector<TextView> theirs = RowsWithMark(other.rows, other.cleanUp);
  std::size_t same = 0, end = 0;
  const std::size_t least = std::min(mine.size(), theirs.size());
  while (same < least && mine[same] == theirs[same]) ++same;
  while (end < least - same && mine[mine.size() - 1 - end] == theirs[theirs.size() - 1 - end]) {
    ++end;
  }
  const std::size_t left = mine.size() - same - end, right = theirs.size() - same - end;
  if (left > 1 || right > 1 || left + right == 0) return std::nullopt;
  return RowDifference{left == 1 ? Text(mine[same]) : Text(),
                       right == 1 ? Text(theirs[same]) : Text()};
}
