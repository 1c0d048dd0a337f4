// iocv verify: whether the records of a file come back when they are decoded and encoded.
#include <algorithm>
#include <memory>
#include <span>

#include "cell_rows.h"
#include "decode.h"
#include "encode.h"
#include "json.h"
#include "pipeline.h"
#include "progress.h"
#include "run_options.h"

namespace iocv::tool {
namespace {

struct VerifyOptions {
  std::string layout;
  std::string data;
  bool fields_only = false;
  Settings settings;
  RunOptions run;
};

struct Differences {
  std::int64_t records = 0;   // that do not come back, those that do not decode included
  std::int64_t rejected = 0;  // that do not decode
  std::string first;          // what the first one is about
};

std::string hex_of(std::string_view bytes) {
  std::string text;
  append_hex(text, bytes, " ");
  return text.empty() ? "nothing" : text;
}

class Verifier {
 public:
  Verifier(const Layout& layout, bool gaps)
      : gaps_(gaps), lines_(layout.lines()), decoder_(layout), encoder_(layout) {}

  void verify(const Block& block) {
    found_ = {};
    rows_.clear();
    rejects_.clear();
    decoder_.decode(block, rows_, {}, rejects_);
    auto rejected = rejects_.records.begin();
    std::size_t rejects_seen = 0;
    const std::size_t fields = encoder_.columns().size();
    for (std::size_t i = 0; i < block.count(); ++i) {
      if (rejected != rejects_.records.end() && rejected->index == i) {
        note_reject(block.record(i), rejects_seen);
        rejects_seen = rejected++->rejects_end;
      } else {
        compare(block.record(i), {rows_.values().data() + i * fields, fields});
      }
    }
  }

  const Differences& found() const noexcept { return found_; }

 private:
  void note(const Record& record, std::size_t from, const std::string& sentence) {
    ++found_.records;
    if (!found_.first.empty()) return;
    found_.first = "record " + std::to_string(record.number) + ", offset " +
                   std::to_string(record.offset + static_cast<std::int64_t>(from)) + ": " +
                   sentence + "\n";
  }

  // Tells of the first of the record's rejects, which begin at `from`.
  void note_reject(const Record& record, std::size_t from) {
    const std::string_view rejects = std::string_view(rejects_.text).substr(from);
    note(record, 0, "it does not decode, " + std::string(rejects.substr(0, rejects.find('\n'))));
    ++found_.rejected;
  }

  void compare(const Record& record, std::span<const Given> values) {
    encoder_.begin();
    for (std::size_t i = 0; i < values.size(); ++i) {
      const std::optional<Refusal> refused = encoder_.put(i, values[i]);
      if (!refused) continue;
      const Column& column = encoder_.columns()[i];
      return note(record, column.from,
                  "\"" + column.name + "\" does not encode: " + refused->message);
    }
    std::string_view again = encoder_.record();
    if (lines_) again.remove_suffix(again.ends_with("\r\n") ? 2 : 1);
    for (const Column& column : encoder_.columns()) {
      const std::string_view before = part(record.bytes, column.from, column.width);
      const std::string_view after = part(again, column.from, column.width);
      if (before == after) continue;
      return note(
          record, column.from,
          "\"" + column.name + "\" is " + hex_of(before) + ", and comes back as " + hex_of(after));
    }
    if (gaps_ && record.bytes != again) compare_gaps(record, again);
  }

  void compare_gaps(const Record& record, std::string_view again) {
    const auto [here, there] =
        std::mismatch(record.bytes.begin(), record.bytes.end(), again.begin(), again.end());
    const auto at = static_cast<std::size_t>(here - record.bytes.begin());
    note(record, at,
         "byte " + std::to_string(at + 1) + " of no field is " + hex_of(part(record.bytes, at, 1)) +
             ", and comes back as " + hex_of(part(again, at, 1)));
  }

  static std::string_view part(std::string_view bytes, std::size_t from, std::size_t length) {
    return from < bytes.size() ? bytes.substr(from, length) : std::string_view();
  }

  bool gaps_;
  bool lines_;
  Decoder decoder_;
  Encoder encoder_;
  CellRows rows_;
  RejectLines rejects_;
  Differences found_;
};

Exit verify(const VerifyOptions& options) {
  const Layout layout = load_layout(options.layout);
  apply(overlaid(layout.settings, options.settings));
  InputFile data(options.data);
  RecordReader reader(data, framing_of(layout), options.run.block);
  std::vector<std::unique_ptr<Verifier>> verifiers;
  for (std::size_t i = 0; i < options.run.workers(); ++i) {
    verifiers.push_back(std::make_unique<Verifier>(layout, !options.fields_only));
  }
  Differences all;
  std::int64_t records = 0;
  std::int64_t bytes = 0;
  {
    Progress progress(data.size(), options.run.quiet, options.run.progress);
    const auto work = [](auto& verifier, const Block& block) { verifier->verify(block); };
    const auto finish = [&](auto& verifier, const Block& block) {
      const Differences& found = verifier->found();
      if (all.first.empty()) all.first = found.first;
      all.records += found.records;
      all.rejected += found.rejected;
      records += static_cast<std::int64_t>(block.count());
      bytes += static_cast<std::int64_t>(block.size());
      progress.show(records, bytes, all.records);
      return true;
    };
    Pipeline(reader, verifiers, work, finish).run();
  }
  std::string text = all.first;
  if (all.records == 0) {
    text += counted(records, "record") + ", all come back\n";
  } else {
    text += std::to_string(all.records) + " of " + counted(records, "record") +
            " do not come back, " + std::to_string(all.rejected) + " of them do not decode\n";
  }
  print(text);
  return all.records == 0 ? Exit::clean : Exit::failures;
}

}  // namespace

Command add_verify(CLI::App& tool) {
  auto options = std::make_shared<VerifyOptions>();
  CLI::App* const app =
      tool.add_subcommand("verify", "Decodes a file, encodes it again and compares");
  app->footer(
      "Prints the first difference and how many records differ. encode writes blanks where no "
      "field\n"
      "is, so other bytes there are a difference, too, unless --fields-only is given.\n"
      "Exit code: 0 all records come back, 1 some do not, 2 usage or layout error, 3 file "
      "trouble.");
  add_positional(*app, "LAYOUT", options->layout, "the layout file");
  add_positional(*app, "DATA", options->data, "the data file, - for standard input");
  app->add_flag("--fields-only", options->fields_only, "leave bytes of no field alone");
  add_run_options(*app, options->run);
  add_settings(*app, options->settings);
  return {app, [options] { return verify(*options); }};
}

}  // namespace iocv::tool
