// quillon-batch: every job of the program without a screen.

#include <signal.h>

#include <CLI/CLI.hpp>
#include <iostream>
#include <new>
#include <string>
#include <vector>

#include "batch/commands.h"
#include "core/attempt.h"
#include "core/version.h"
#include "store/error.h"

namespace quillon::batch {

namespace {

constexpr const char* kScriptActions =
    R"(Actions:
  select QB_ID | last            choose a taxon, or the new record saved last
  expand QB_ID, collapse QB_ID   open or close a branch of the hierarchy
  drop QB_ID QB_ID               drag the first node onto the second
  tab KEY                        bring up a tab
  set CONTROL TEXT               enter or choose a text; \n, \t and \\ in it
  check CONTROL on | off         a check box
  option CONTROL                 one of a group of options
  row GRID N, item LIST N        select a row or an item, from 1
  click CONTROL                  a button, a key of the toolbar or a menu item
  enter CONTROL, leave CONTROL   move the focus
  answer WORD                    for the next question: Yes, No, OK or Cancel
  file PATH                      for the next file dialog
  show [CONTROL ...]             print controls: name, value, disabled, hidden, locked
  current                        print qb_id and name of the record
Lines that are empty or begin with # are skipped.)";

struct Arguments {
    CommonOptions common;
    bool yes = false, no = false;
    std::string dataSet, file, query, format = "tagged", filter = "none", logFormat = "log", preferences;
    std::vector<std::string> parameters;
    ExportArguments exported;
};

void AddCommon(CLI::App& command, Arguments& arguments) {
    command.add_option("--work-dir", arguments.common.workDir, "Folder for logs and work files")
        ->check(CLI::ExistingDirectory);
    auto* yes = command.add_flag("--yes", arguments.yes, "Answer Yes to every question");
    command.add_flag("--no", arguments.no, "Answer No to every question")->excludes(yes);
    command.add_flag("--progress", arguments.common.progress, "Show a progress line on a terminal");
    command
        .add_option("DATASET", arguments.dataSet, "The DataSet: the whole name of its file, with its ending")
        ->required();
}

void AddKingdom(CLI::App& command, Arguments& arguments) {
    command.add_option("--kingdom", arguments.common.kingdom,
                       "The preference kingdom; without it the DataSet's own");
}

exporting::ListType ListTypeOf(std::string_view list) {
    using exporting::ListType;
    if (list == "name") return ListType::Name;
    return list == "author" ? ListType::NameAuthor : ListType::NameAuthorRank;
}

void AddExport(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand("export", "Write an exchange file, or a list of names");
    AddCommon(*command, arguments);
    AddKingdom(*command, arguments);
    ExportArguments& exported = arguments.exported;
    command->add_option("FILE", exported.file, "The file to write")->required();
    CLI::Option* online =
        command->add_flag("--online", exported.online, "Validate first, and omit records with errors");
    const auto takeList = [&exported](const std::string& list) { exported.list = ListTypeOf(list); };
    command
        ->add_option_function<std::string>("--list", takeList,
                                           "A list of names instead: name, author or rank")
        ->check(CLI::IsMember({"name", "author", "rank"}))
        ->excludes(online);
    command->add_option("--filter", exported.filter, "none, journal or 'COLUMN OPERATOR VALUE'");
    const auto takeEncoding = [&exported](const std::string& encoding) {
        if (encoding == "utf-8") exported.encoding = exporting::Encoding::Utf8;
    };
    command->add_option_function<std::string>("--encoding", takeEncoding, "cp1252 or utf-8")
        ->check(CLI::IsMember({"cp1252", "utf-8"}));
}

void AddScript(CLI::App& app, Arguments& arguments) {
    CLI::App* command = app.add_subcommand("script", "Play a file of actions on the forms of the program");
    AddCommon(*command, arguments);
    AddKingdom(*command, arguments);
    command->add_option("FILE", arguments.file, "The actions, one a line; - for standard input")->required();
    command->add_option("--preferences", arguments.preferences,
                        "A Qln.Ini; without it the preferences are those of a new user");
    command->footer(kScriptActions);
}

ExitStatus Dispatch(const CLI::App& app, Arguments& arguments) {
    arguments.common.answer = arguments.yes ? Answer::Yes : Answer::No;
    if (app.got_subcommand("new")) return RunNew(arguments.common, arguments.dataSet);
    if (app.got_subcommand("import")) return RunImport(arguments.common, arguments.dataSet, arguments.file);
    if (app.got_subcommand("validate"))
        return RunValidate(arguments.common, arguments.dataSet, arguments.filter,
                           arguments.logFormat == "tsv");
    if (app.got_subcommand("export"))
        return RunExport(arguments.common, arguments.dataSet, arguments.exported);
    if (app.got_subcommand("script"))
        return RunScript(arguments.common, arguments.dataSet, arguments.file, arguments.preferences);
    if (app.got_subcommand("query"))
        return RunQuery(arguments.common, arguments.dataSet, arguments.query, arguments.parameters);
    return RunInfo(arguments.common, arguments.dataSet);
}

// A job that runs out of memory ends with Failed, whatever status it returns.
ExitStatus RunGuarded(const CLI::App& app, Arguments& arguments) {
    try {
        const ExitStatus status = Dispatch(app, arguments);
        return ConsolePrompter::SaidOutOfMemory() ? ExitStatus::Failed : status;
    } catch (const store::StoreError& error) {
        PrintMessage(error.what());
    } catch (const std::bad_alloc&) {
        PrintMessage(kNotEnoughMemory);
    } catch (const std::exception& error) {
        PrintMessage("The job failed: ", error.what());
    }
    return ExitStatus::Failed;
}

// Prints the help, the version, or what is wrong with the command line.
ExitStatus ExplainUsage(const CLI::App& app, const CLI::ParseError& error) {
    if (app.exit(error) != 0) return ExitStatus::Usage;
    if (std::cout.flush()) return ExitStatus::Done;
    PrintMessage("The job failed: ", OutputFailure());
    return ExitStatus::Failed;
}

int Run(int argc, char** argv) {
    CLI::App app("Taxonomic Quillon without a screen", "quillon-batch");
    Arguments arguments;
    app.set_version_flag("--version", std::string(kProgramVersion));
    app.require_subcommand(1);

    CLI::App* make = app.add_subcommand("new", "Make a new DataSet for a kingdom");
    AddCommon(*make, arguments);
    make->add_option("--kingdom", arguments.common.kingdom,
                     "The kingdom: Monera, Protozoa, Plantae, Fungi, Animalia or Chromista")
        ->required();
    CLI::App* import = app.add_subcommand("import", "Read an exchange file into a DataSet");
    AddCommon(*import, arguments);
    AddKingdom(*import, arguments);
    import->add_option("FILE", arguments.file, "The file to import")->required();
    import->add_option("--format", arguments.format, "The format of the file")
        ->check(CLI::IsMember({"tagged"}));
    CLI::App* validate = app.add_subcommand("validate", "Check a DataSet against the rules of the authority");
    AddCommon(*validate, arguments);
    AddKingdom(*validate, arguments);
    validate->add_option("--filter", arguments.filter, "none, journal or 'COLUMN OPERATOR VALUE'");
    validate
        ->add_option("--format", arguments.logFormat,
                     "log, or tsv for the findings as rows in validate.tsv too")
        ->check(CLI::IsMember({"log", "tsv"}));
    AddExport(app, arguments);
    AddScript(app, arguments);
    CLI::App* query = app.add_subcommand("query", "Run a stored query, or a text beginning with select");
    AddCommon(*query, arguments);
    AddKingdom(*query, arguments);
    query->add_option("QUERY", arguments.query, "The name of a query, or a select")->required();
    query->add_option("PARAMETER=VALUE", arguments.parameters, "Values of parameters; the default is Null");
    CLI::App* info =
        app.add_subcommand("info", "Print version, kingdom and the number of rows of each table");
    AddCommon(*info, arguments);
    AddKingdom(*info, arguments);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return static_cast<int>(ExplainUsage(app, error));
    }
    return static_cast<int>(RunGuarded(app, arguments));
}

}  // namespace

}  // namespace quillon::batch

int main(int argc, char** argv) {
    // So that a write beyond the file size limit, or to a pipe that nobody reads, fails and is reported.
    signal(SIGXFSZ, SIG_IGN);
    signal(SIGPIPE, SIG_IGN);
    try {
        return quillon::batch::Run(argc, argv);
    } catch (const std::exception&) {
        // Parsing the command line ran out of memory.
        quillon::batch::PrintMessage(quillon::kNotEnoughMemory);
        return static_cast<int>(quillon::batch::ExitStatus::Failed);
    }
}
