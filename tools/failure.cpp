#include "failure.h"

#include <system_error>

namespace iocv::tool {

FileError::FileError(std::string_view action, std::string_view path, int error)
    : std::runtime_error("cannot " + std::string(action) + " '" + std::string(path) +
                         "': " + std::generic_category().message(error)) {}

}  // namespace iocv::tool
