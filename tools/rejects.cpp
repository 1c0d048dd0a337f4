#include "rejects.h"

#include "json.h"

namespace iocv::tool {

void append_reject(std::string& lines, const Reject& reject) {
  JsonObject line;
  line.integer("record", reject.record).integer("offset", reject.offset);
  line.text_or_null("field", reject.field).text_or_null("format", reject.format);
  line.hex("raw_hex", reject.raw);
  if (reject.status) {
    line.integer("status", *reject.status);
  } else {
    line.null("status");
  }
  line.text("message", reject.message);
  lines += line.str();
  lines += '\n';
}

void RejectLines::clear() {
  text.clear();
  count = 0;
  records.clear();
}

void RejectsFile::write(std::string_view lines) {
  if (lines.empty()) return;
  if (!file_) file_.emplace(path_);
  file_->write(lines);
}

void RejectsFile::commit() {
  if (file_) {
    file_->commit();
  } else {
    remove_file(path_);
  }
}

}  // namespace iocv::tool
