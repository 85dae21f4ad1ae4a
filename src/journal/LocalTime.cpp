#include "LocalTime.h"

#include <ctime>

std::string LocalTime(std::int64_t secondsSince1970) {
  const std::time_t moment = secondsSince1970;
  std::tm parts = {};
  char text[40] = {};
  if (localtime_r(&moment, &parts) == nullptr) return std::to_string(secondsSince1970);
  std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &parts);
  return text;
}
