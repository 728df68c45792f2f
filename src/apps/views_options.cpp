#include "apps/option_values.h"

namespace catalogador {

namespace {

CLI::App* addAction(CLI::App& views, Options& options, const char* name, const char* description,
                    ViewsCall::Action action) {
    CLI::App* added = views.add_subcommand(name, description);
    added->callback([&options, action] { options.views.action = action; });
    return added;
}

void addFolder(CLI::App& app, ViewsCall& call, const char* name, const char* description) {
    app.add_option(name, call.folder, description)->type_name("DIR")->required();
}

}  // namespace

void addViews(CLI::App& views, Options& options) {
    ViewsCall& call = options.views;
    views.require_subcommand(1);
    CLI::App* write = addAction(views, options, "export", "Writes a file for each view",
                                ViewsCall::Action::write);
    addConnection(*write, options);
    addFolder(*write, call, "--to", "Folder of the files");
    addRepeated(
        *write, "--view",
        [&call](const std::string& text) {
            call.views.push_back(numberOf<std::int16_t>("--view", text));
        },
        "View to write, default all; may be repeated", "N");
    CLI::App* diff =
        addAction(views, options, "diff", "Says in what the database differs from the files",
                  ViewsCall::Action::diff);
    CLI::App* apply = addAction(views, options, "apply", "Makes the database what the files say",
                                ViewsCall::Action::apply);
    for (CLI::App* compared : {diff, apply}) {
        addConnection(*compared, options);
        addFolder(*compared, call, "--from", "Folder of the files");
    }
    CLI::App* test =
        addAction(views, options, "test",
                  "Plays the views' screen scripts on a scratch database and compares what happens",
                  ViewsCall::Action::test);
    addConnection(*test, options)
        ->add_flag("--scratch", call.scratch, "Nothing but the tables, without records");
    addFolder(*test, call, "--from", "Folder of the files");
    test->add_flag("--accept", call.accept, "Writes what happens as what is expected");
    addNumber<std::int16_t>(*apply, "--company", options.company,
                            "Company id of the checks, default 1");
    apply->add_flag("--dry-run", call.dryRun, "Says what would be changed and changes nothing");
    apply->add_flag("--delete-missing", call.deleteMissing,
                    "Deletes views that no file describes; their records stay");
    apply->add_flag("--widths", call.widths,
                    "Takes the widths of columns from the files, not those that users dragged");
}

}  // namespace catalogador
