#pragma once

#include "core/settings/PelloSettings.h"
#include "core/settings/QueryHistory.h"
#include "platform/BundleReader.h"
#include "platform/MainLoop.h"
#include "platform/Pasteboard.h"
#include "platform/Workspace.h"
#include "scripts/RunningScripts.h"
#include "scripts/ScriptsIndex.h"
#include "search/UsageStore.h"
#include "sources/AliasIndex.h"
#include "sources/AppIndexer.h"
#include "sources/GlyphCatalogue.h"
#include "sources/QuickActions.h"

namespace pello {

/// What the controller works with. Everything must outlive it.
struct ControllerParts {
    PelloSettings& settings;
    AppIndexer& indexer;
    AliasIndex& aliases;
    ScriptsIndex& scripts;
    RunningScripts& runningScripts;
    QuickActions& quickActions;
    UsageStore& usage;
    QueryHistory& queryHistory;
    MainLoop& loop;
    Workspace& workspace;
    Pasteboard& pasteboard;
    const BundleReader& bundles;
    GlyphCatalogue& glyphs;
};

} // namespace pello
