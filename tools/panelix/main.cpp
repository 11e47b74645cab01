#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "Panelix/NkPanelix.h"
#include "arbora/base/NbFileHelper.h"
#include "arbora/base/NkPreferences.h"
#include "arbora/scene/NkDB.h"
#include "src/platform/Win32.h"
#include "tools/panelix/Arguments.h"
#include "tools/panelix/Commands.h"

namespace {

constexpr const char* kSizeOfPicture = "Width and height in pixels (640x480 for a scene, what a dialog takes)";

/// Unless the settings tell where the skins are, those that were installed or built with the program are used.
void findOwnSkins() {
  if (NkPreferences::getStringValue("ARBORAHOME")) return;
  constexpr DWORD kPathSize = 4096;
  char program[kPathSize] = "";
  GetModuleFileNameA(nullptr, program, kPathSize);
  const NbString folder = NbFileHelper::getDirName(NbFileHelper::toUnixPath(program));
  for (const char* way : {"/../share/panelix", "/../../.."}) {
    const NbString home = folder + way;
    if (!NbFileHelper::isAccessible(home + "/data/Panelix/skins")) continue;
    NkPreferences::setString("ARBORAHOME", home);
    return;
  }
}

/// The toolkit and the scene library with all their classes, for as long as it lives.
struct Library {
  Library() {
    findOwnSkins();
    NkPanelix::init();
  }
  ~Library() { NkPanelix::finish(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
};

/// Numbers with a separator between them, and nothing else.
template <class Number, std::size_t count>
bool parseNumbers(std::string_view text, char separator, std::array<Number, count>& numbers) {
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) {
      if (text.empty() || text.front() != separator) return false;
      text.remove_prefix(1);
    }
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), numbers[i]);
    if (error != std::errc()) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  }
  return text.empty();
}

void addSizeOption(CLI::App& command, std::optional<NbVec2i32>& size, const std::string& meaning) {
  const auto parse = [&size](const std::string& text) {
    std::array<int, 2> numbers{};
    const auto isGood = [](int number) { return number >= 1 && number <= panelix::kLargestSize; };
    if (!parseNumbers(text, 'x', numbers) || !std::all_of(numbers.begin(), numbers.end(), isGood)) {
      throw CLI::ValidationError("--size", "'" + text + "' is no size such as 640x480, each from 1 to " +
                                               std::to_string(panelix::kLargestSize));
    }
    size = NbVec2i32(numbers[0], numbers[1]);
  };
  command.add_option_function<std::string>("--size", parse, meaning)->type_name("WxH");
}

void addDialogOptions(CLI::App& command, panelix::DialogOptions& dialog, bool canShowBoth) {
  command.add_option("--id", dialog.id, "The auditorID of one of the file's dialogs (the first one)");
  std::map<std::string, panelix::Form> forms{{"2d", panelix::Form::IN_2D}, {"3d", panelix::Form::IN_3D}};
  if (canShowBoth) forms.emplace("both", panelix::Form::BOTH);
  std::vector<std::string> names;
  for (const auto& [name, form] : forms) names.push_back(name);
  const auto parse = [forms, &dialog](const std::string& name) { dialog.form = forms.at(name); };
  command.add_option_function<std::string>("--form", parse, "Native windows or a panel in a scene (3d)")
      ->check(CLI::IsMember(names))
      ->type_name("FORM");
}

void addSkinOption(CLI::App& command, std::string& skin) {
  command.add_option("--skin", skin, "Look of the 3D form: name or path (default)");
}

void addBackgroundOption(CLI::App& command, NbColor& color) {
  const auto parse = [&color](const std::string& text) {
    std::array<float, 3> numbers{};
    const auto isGood = [](float number) { return number >= 0 && number <= 1; };
    if (!parseNumbers(text, ',', numbers) || !std::all_of(numbers.begin(), numbers.end(), isGood)) {
      throw CLI::ValidationError("--background", "'" + text + "' is no colour such as 1,0.5,0, each from 0 to 1");
    }
    color = NbColor(numbers[0], numbers[1], numbers[2]);
  };
  command.add_option_function<std::string>("--background", parse, "Colour behind the scene, each from 0 to 1 (0,0,0)")
      ->type_name("R,G,B");
}

int run(std::vector<std::string> arguments) {
  CLI::App app("Draws, shows and checks scenes and dialogs, and describes what they are made of.", "panelix");
  app.set_version_flag("--version", std::string("panelix ") + PANELIX_VERSION + " (" + NkDB::getVersion() + ")");
  app.require_subcommand(0, 1);
  app.footer("Exit codes: 0 good; 1 findings, or a file that failed; 2 wrong usage, no display or no OpenGL.");

  panelix::RenderOptions render;
  CLI::App* const renderCommand = app.add_subcommand("render", "Draws a scene or a dialog into a PNG file");
  renderCommand->add_option("FILE", render.file, "The scene, or the file with the dialog")->required();
  renderCommand->add_option("-o,--output", render.output, "The picture")->required()->type_name("OUT.png");
  addDialogOptions(*renderCommand, render.dialog, false);
  addSkinOption(*renderCommand, render.skin);
  addSizeOption(*renderCommand, render.size, kSizeOfPicture);
  addBackgroundOption(*renderCommand, render.background);

  panelix::ShowOptions show;
  CLI::App* const showCommand = app.add_subcommand("show", "Opens a scene or a dialog and prints what the user does");
  showCommand->add_option("FILE", show.file, "The scene, or the file with the dialog")->required();
  addDialogOptions(*showCommand, show.dialog, true);
  addSkinOption(*showCommand, show.skin);
  addSizeOption(*showCommand, show.size, kSizeOfPicture);

  panelix::InspectOptions inspect;
  CLI::App* const inspectCommand = app.add_subcommand("inspect", "Builds a dialog and prints its layout as JSON");
  inspectCommand->add_option("FILE", inspect.file, "The file with the dialog")->required();
  addDialogOptions(*inspectCommand, inspect.dialog, false);
  addSizeOption(*inspectCommand, inspect.size, "Width and height of the dialog in pixels (its own)");

  panelix::CheckOptions check;
  std::string format = "text";
  CLI::App* const checkCommand = app.add_subcommand("check", "Reads scenes and reports what is wrong in them");
  checkCommand->add_option("FILE", check.files, "The scenes")->required();
  checkCommand->add_flag("--strict", check.strict, "Warnings count as errors do");
  checkCommand
      ->add_option("--format", format, "Form of the report: text, on standard error, or json, on standard output")
      ->check(CLI::IsMember({"text", "json"}))
      ->type_name("FORMAT");

  panelix::DescribeOptions describe;
  CLI::App* const describeCommand = app.add_subcommand("describe", "Prints the classes of dialog files");
  describeCommand->add_option("TYPE", describe.type, "One class: its keyword in files, or its name (all classes)");
  describeCommand->add_flag("--json", describe.json, "For programs: an array with one object for each class");

  try {
    // The parser takes them from the back.
    std::reverse(arguments.begin(), arguments.end());
    app.parse(std::move(arguments));
  } catch (const CLI::ParseError& result) {
    // Help and version come this way, too.
    return app.exit(result) == 0 ? panelix::GOOD : panelix::UNUSABLE;
  }
  check.json = format == "json";

  // Asked for only here, so that a misspelt command is named in the message.
  if (app.get_subcommands().empty()) {
    std::cerr << "A command is required\nRun with --help for more information.\n";
    return panelix::UNUSABLE;
  }

  const Library library;
  if (renderCommand->parsed()) return panelix::render(render);
  if (showCommand->parsed()) return panelix::show(show);
  if (inspectCommand->parsed()) return panelix::inspect(inspect);
  if (describeCommand->parsed()) return panelix::describe(describe);
  return panelix::check(check);
}

} // namespace

int main(int argc, char** argv) { return run(panelix::commandLineArguments(argc, argv)); }
