#include "failure.h"

#include <system_error>

namespace iocv::tool {

FileError::FileError(std::string_view action, std::string_view path, int error)
    : FileError(action, path, std::generic_category().message(error)) {}

FileError::FileError(std::string_view action, std::string_view path, std::string_view reason)
    : std::runtime_error("cannot " + std::string(action) + " '" + std::string(path) +
                         "': " + std::string(reason)) {}

}  // namespace iocv::tool
