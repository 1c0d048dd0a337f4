// iocv verify: whether the records of a file come back when they are decoded and encoded.
#include <memory>

#include "pipeline.h"
#include "progress.h"
#include "run_options.h"
#include "verify.h"

namespace iocv::tool {
namespace {

struct VerifyOptions {
  std::string layout;
  std::string data;
  bool fields_only = false;
  Settings settings;
  RunOptions run;
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
      all.add(verifier->found());
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
