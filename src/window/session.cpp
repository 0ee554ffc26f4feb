#include "window/session.h"

#include "base/fs.h"
#include "window/text_edge.h"

namespace korvane::window {

std::unique_ptr<WindowSession> WindowSession::open(const StartupOptions& options,
                                                   std::string& error) {
  auto s = std::make_unique<WindowSession>();
  StartupOptions stoppable = options;  // the Stop button reaches into the engine's runs too
  stoppable.interrupted = &s->interrupted;
  if (!startUp(stoppable, s->started_, s->ctx, error)) return nullptr;
  // The project folder is the one MX has current.
  const std::string project = s->started_.engine->project().currentFolder();
  if (!project.empty()) s->ctx.projectFolder = fs::withTrailingSeparator(project);
  s->logging_ = std::make_unique<LoggingEngine>(*s->started_.engine, s->log, s->ctx.messages);
  s->ctx.engine = s->logging_.get();
  s->ctx.log = [log = &s->log](const std::string& line) { log->add(line); };
  s->ctx.warnings.sink = &s->warnings;
  return s;
}

QString WindowSession::text(MessageKey key) const { return fromCore(ctx.messages.text(key)); }

QString WindowSession::format(MessageKey key, const QString& a1, const QString& a2) const {
  return fromCore(ctx.messages.format(key, toCore(a1), toCore(a2)));
}

std::string WindowSession::helpFile() const {
  return fs::join(started_.paths.home,
                  std::string("Korvane") + (started_.paths.hungarianHelp ? "HU" : "EN") + ".chm");
}

}  // namespace korvane::window
