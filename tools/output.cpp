#include "output.h"

#include <array>
#include <filesystem>
#include <utility>

#include "csv.h"
#include "csv_run.h"
#include "failure.h"
#include "files.h"
#include "json_rows.h"
#include "sqlite_rows.h"

namespace iocv::tool {
namespace {

struct Name {
  std::string_view text;
  OutputForm form;
};
constexpr std::array<Name, 3> kForms = {{
    {"csv", OutputForm::csv},
    {"jsonl", OutputForm::jsonl},
    {"sqlite", OutputForm::sqlite},
}};
constexpr std::array<Name, 6> kEndings = {{
    {".csv", OutputForm::csv},
    {".jsonl", OutputForm::jsonl},
    {".ndjson", OutputForm::jsonl},
    {".sqlite", OutputForm::sqlite},
    {".sqlite3", OutputForm::sqlite},
    {".db", OutputForm::sqlite},
}};

OutputFile open_file(const std::string& path) {
  return path == "-" ? OutputFile::standard_output() : OutputFile(path);
}

class CsvOutput final : public Output {
 public:
  CsvOutput(const std::string& path, const Layout& layout)
      : layout_(layout), file_(open_file(path)) {
    CsvRows names(header_);
    for (const LayoutField& field : layout.fields) names.text(field.name);
    names.end_row();
  }
  std::unique_ptr<Rows> rows(std::string& out) override {
    return std::make_unique<CsvRunRows>(layout_, out);
  }
  void write(std::string_view rows) override {
    file_.write(std::exchange(header_, {}));
    file_.write(rows);
  }
  void commit() override {
    write({});
    file_.commit();
  }

 private:
  const Layout& layout_;
  OutputFile file_;
  std::string header_;  // until the first rows are there: nothing is written before trouble
};

class JsonOutput final : public Output {
 public:
  JsonOutput(const std::string& path, const Layout& layout) : file_(open_file(path)) {
    for (const LayoutField& field : layout.fields) names_.push_back(field.name);
  }
  std::unique_ptr<Rows> rows(std::string& out) override {
    return std::make_unique<JsonRows>(names_, out);
  }
  void write(std::string_view rows) override { file_.write(rows); }
  void commit() override { file_.commit(); }

 private:
  std::vector<std::string> names_;
  OutputFile file_;
};

class SqliteOutput final : public Output {
 public:
  SqliteOutput(const std::string& path, const Layout& layout) : file_(path, layout.fields) {}
  std::unique_ptr<Rows> rows(std::string& out) override {
    return std::make_unique<SqliteRows>(out);
  }
  void write(std::string_view rows) override { file_.write(rows); }
  void commit() override { file_.commit(); }

 private:
  SqliteFile file_;
};

}  // namespace

OutputForm form_of_name(std::string_view path) {
  const std::string ending = std::filesystem::path(path).extension().string();
  for (const Name& name : kEndings) {
    if (name.text == ending) return name.form;
  }
  return OutputForm::csv;
}

OutputForm form_named(std::string_view text) {
  for (const Name& name : kForms) {
    if (name.text == text) return name.form;
  }
  throw UsageError("the form '" + std::string(text) + "' is none of csv, jsonl and sqlite");
}

std::unique_ptr<Output> open_output(const std::string& path, OutputForm form,
                                    const Layout& layout) {
  switch (form) {
    case OutputForm::csv: return std::make_unique<CsvOutput>(path, layout);
    case OutputForm::jsonl: return std::make_unique<JsonOutput>(path, layout);
    case OutputForm::sqlite: break;
  }
  if (path == "-") throw UsageError("a database needs a file: -o OUT");
  return std::make_unique<SqliteOutput>(path, layout);
}

}  // namespace iocv::tool
