// Keys of the language file's "Cli" section: the korvane program's help,
// argument errors, progress and reports, and the start-up's own errors.
#pragma once

#include "base/message_key.h"

namespace korvane::texts::cli {

// What a run reports.
inline constexpr MessageKey kEntry{"Cli", "entry"};
inline constexpr MessageKey kDone{"Cli", "done"};
inline constexpr MessageKey kStopped{"Cli", "stopped"};
inline constexpr MessageKey kSummaryModels{"Cli", "summary_models"};
inline constexpr MessageKey kSummaryFiles{"Cli", "summary_files"};
inline constexpr MessageKey kSummaryEmptyModels{"Cli", "summary_empty"};
inline constexpr MessageKey kModelCounts{"Cli", "model_counts"};
inline constexpr MessageKey kProgressAt{"Cli", "progress_at"};
inline constexpr MessageKey kProgressCounts{"Cli", "progress_counts"};

// Start-up and the command line.
inline constexpr MessageKey kNoProject{"Cli", "no_project"};
inline constexpr MessageKey kNotProject{"Cli", "not_project"};
inline constexpr MessageKey kChooseProject{"Cli", "choose_project"};
inline constexpr MessageKey kMxProject{"Cli", "mx_project"};
inline constexpr MessageKey kEngineMissing{"Cli", "engine_missing"};
inline constexpr MessageKey kBusy{"Cli", "busy"};
inline constexpr MessageKey kSelfOutput{"Cli", "self_output"};
inline constexpr MessageKey kBadPreset{"Cli", "bad_preset"};
inline constexpr MessageKey kNoEntry{"Cli", "no_entry"};
inline constexpr MessageKey kDidYouMean{"Cli", "did_you_mean"};
inline constexpr MessageKey kNoSections{"Cli", "no_sections"};
inline constexpr MessageKey kBracketless{"Cli", "bracketless"};
inline constexpr MessageKey kBadLanguage{"Cli", "bad_lang"};
inline constexpr MessageKey kBadHome{"Cli", "bad_home"};
inline constexpr MessageKey kDoneOne{"Cli", "done_one"};
inline constexpr MessageKey kHelpInclude{"Cli", "h_include"};
inline constexpr MessageKey kHelpDumpVars{"Cli", "h_dumpvars"};
inline constexpr MessageKey kHelpDeps{"Cli", "h_deps"};
inline constexpr MessageKey kHelpMake{"Cli", "h_make"};
inline constexpr MessageKey kDepReads{"Cli", "dep_reads"};
inline constexpr MessageKey kDepWrites{"Cli", "dep_writes"};
inline constexpr MessageKey kDepModel{"Cli", "dep_model"};
inline constexpr MessageKey kStrings{"Cli", "strings"};
inline constexpr MessageKey kStringsOne{"Cli", "strings_one"};
inline constexpr MessageKey kPoints{"Cli", "points"};
inline constexpr MessageKey kPointsOne{"Cli", "points_one"};
inline constexpr MessageKey kLines{"Cli", "lines"};
inline constexpr MessageKey kLinesOne{"Cli", "lines_one"};
inline constexpr MessageKey kMxRuns{"Cli", "mxruns"};
inline constexpr MessageKey kMxRunsOne{"Cli", "mxruns_one"};
inline constexpr MessageKey kAskedBy{"Cli", "asked_by"};
inline constexpr MessageKey kAskedTimes{"Cli", "asked_times"};
inline constexpr MessageKey kAskedAtEnd{"Cli", "asked_end"};
inline constexpr MessageKey kAskedMore{"Cli", "asked_more"};
inline constexpr MessageKey kArgRequired{"Cli", "arg_required"};
inline constexpr MessageKey kArgCommand{"Cli", "arg_command"};
inline constexpr MessageKey kArgExtra{"Cli", "arg_extra"};
inline constexpr MessageKey kArgValue{"Cli", "arg_value"};
inline constexpr MessageKey kArgInvalid{"Cli", "arg_invalid"};
inline constexpr MessageKey kArgNoCommand{"Cli", "arg_nocommand"};
inline constexpr MessageKey kArgHint{"Cli", "arg_hint"};

// The models command.
inline constexpr MessageKey kNoModel{"Cli", "no_model"};
inline constexpr MessageKey kListing{"Cli", "listing"};
inline constexpr MessageKey kDeleted{"Cli", "deleted"};
inline constexpr MessageKey kColumnModel{"Cli", "col_model"};
inline constexpr MessageKey kColumnStrings{"Cli", "col_strings"};
inline constexpr MessageKey kColumnPoints{"Cli", "col_points"};
inline constexpr MessageKey kColumnLabel{"Cli", "col_label"};
inline constexpr MessageKey kColumnDimension{"Cli", "col_dims"};
inline constexpr MessageKey kColumnPoint{"Cli", "col_point"};
inline constexpr MessageKey kColumnDim{"Cli", "col_dim"};

// Help: the program, its commands and their options.
inline constexpr MessageKey kHelpApp{"Cli", "h_app"};
inline constexpr MessageKey kHelpHelp{"Cli", "h_help"};
inline constexpr MessageKey kHelpLang{"Cli", "h_lang"};
inline constexpr MessageKey kHelpHelpCommand{"Cli", "h_helpcmd"};
inline constexpr MessageKey kHelpTopic{"Cli", "h_topic"};
inline constexpr MessageKey kHelpRun{"Cli", "h_run"};
inline constexpr MessageKey kHelpCompile{"Cli", "h_compile"};
inline constexpr MessageKey kHelpCheck{"Cli", "h_check"};
inline constexpr MessageKey kHelpSections{"Cli", "h_sections"};
inline constexpr MessageKey kHelpEntry{"Cli", "h_entry"};
inline constexpr MessageKey kHelpFile{"Cli", "h_file"};
inline constexpr MessageKey kHelpProject{"Cli", "h_project"};
inline constexpr MessageKey kHelpHome{"Cli", "h_home"};
inline constexpr MessageKey kHelpEngine{"Cli", "h_engine"};
inline constexpr MessageKey kHelpSaveOne{"Cli", "h_saveone"};
inline constexpr MessageKey kHelpSaveSeparate{"Cli", "h_savesep"};
inline constexpr MessageKey kHelpKeepScripts{"Cli", "h_keepscripts"};
inline constexpr MessageKey kHelpAnswer{"Cli", "h_answer"};
inline constexpr MessageKey kHelpDefine{"Cli", "h_define"};
inline constexpr MessageKey kHelpOutput{"Cli", "h_output"};
inline constexpr MessageKey kHelpVars{"Cli", "h_vars"};
inline constexpr MessageKey kHelpWarnings{"Cli", "h_warnings"};
inline constexpr MessageKey kHelpStrict{"Cli", "h_strict"};
inline constexpr MessageKey kHelpNoWarnings{"Cli", "h_nowarn"};
inline constexpr MessageKey kHelpModels{"Cli", "h_models"};
inline constexpr MessageKey kHelpModelsProject{"Cli", "h_mproject"};
inline constexpr MessageKey kHelpModelsList{"Cli", "h_mlist"};
inline constexpr MessageKey kHelpModelsShow{"Cli", "h_mshow"};
inline constexpr MessageKey kHelpModelsImport{"Cli", "h_mimport"};
inline constexpr MessageKey kHelpModelsExport{"Cli", "h_mexport"};
inline constexpr MessageKey kHelpModelsDelete{"Cli", "h_mdelete"};
inline constexpr MessageKey kHelpModelsExec{"Cli", "h_mexec"};
inline constexpr MessageKey kHelpModelsSections{"Cli", "h_msections"};
inline constexpr MessageKey kHelpModelsOutput{"Cli", "h_moutput"};
inline constexpr MessageKey kHelpModel{"Cli", "h_model"};
inline constexpr MessageKey kHelpLabel{"Cli", "h_label"};
inline constexpr MessageKey kHelpGenio{"Cli", "h_genio"};
inline constexpr MessageKey kHelpMaster{"Cli", "h_master"};
inline constexpr MessageKey kHelpSectionTarget{"Cli", "h_starget"};
inline constexpr MessageKey kHelpSectionInterval{"Cli", "h_sinterval"};
inline constexpr MessageKey kHelpSectionWidth{"Cli", "h_swidth"};
inline constexpr MessageKey kHelpSectionPrefix{"Cli", "h_sprefix"};
inline constexpr MessageKey kHelpImportModel{"Cli", "h_imodel"};
inline constexpr MessageKey kHelpMerge{"Cli", "h_merge"};
inline constexpr MessageKey kImportNamesNoModel{"Cli", "import_no_model"};
inline constexpr MessageKey kImportNamesModels{"Cli", "import_models"};
inline constexpr MessageKey kHelpExponent{"Cli", "h_exponent"};
inline constexpr MessageKey kHelpSixD{"Cli", "h_sixd"};
inline constexpr MessageKey kBadExponent{"Cli", "bad_exponent"};
inline constexpr MessageKey kBadSixD{"Cli", "bad_sixd"};
inline constexpr MessageKey kKeptRecords{"Cli", "kept_records"};

// The help's own words, in place of the command-line library's.
inline constexpr MessageKey kLabelUsage{"Cli", "l_Usage"};
inline constexpr MessageKey kLabelOptionsWord{"Cli", "l_OPTIONS"};
inline constexpr MessageKey kLabelOptions{"Cli", "l_Options"};
inline constexpr MessageKey kLabelPositionals{"Cli", "l_Positionals"};
inline constexpr MessageKey kLabelSubcommands{"Cli", "l_Subcommands"};
inline constexpr MessageKey kLabelSubcommandWord{"Cli", "l_SUBCOMMAND"};
inline constexpr MessageKey kLabelSubcommandsWord{"Cli", "l_SUBCOMMANDS"};
inline constexpr MessageKey kLabelRequired{"Cli", "l_REQUIRED"};

// Looking without changing the models: check, compile and run --dry-run.
inline constexpr MessageKey kLookingWithoutMx{"Cli", "looking_no_mx"};
inline constexpr MessageKey kHelpDryRun{"Cli", "h_dryrun"};
inline constexpr MessageKey kDryRunWithMx{"Cli", "dry_mx"};
inline constexpr MessageKey kDryRunNoChange{"Cli", "dry_none"};
inline constexpr MessageKey kDryRunChanges{"Cli", "dry_title"};
inline constexpr MessageKey kDryRunModelCreated{"Cli", "dry_created"};
inline constexpr MessageKey kDryRunModelDeleted{"Cli", "dry_deleted"};
inline constexpr MessageKey kDryRunModelChanged{"Cli", "dry_changed"};
inline constexpr MessageKey kDryRunStringCreated{"Cli", "dry_string_created"};
inline constexpr MessageKey kDryRunStringDeleted{"Cli", "dry_string_deleted"};
inline constexpr MessageKey kDryRunStringChanged{"Cli", "dry_string_changed"};
inline constexpr MessageKey kDryRunPointCounts{"Cli", "dry_counts"};

}  // namespace korvane::texts::cli
