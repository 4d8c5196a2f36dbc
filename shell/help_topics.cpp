// SPDX-License-Identifier: MIT
#include "shell/help_topics.h"

#include <iterator>

namespace scourwell {

const HelpTopic kHelpTopics[] = {
    {"", "index.html", 1000},
    {"frmHome", "start.html", 1001},
    {"frmTree", "sections.html", 1002},
    {"frmScanSpy", "scan.html", 1003},
    {"SpyFrame", "results.html", 1004},
    {"frmResults", "removal.html", 1005},
    {"frmBackup", "backups.html", 1006},
    {"frmBackupContents", "backups.html", 1006},
    {"InputBox", "backups.html", 1006},
    {"frmIgnore", "ignore.html", 1007},
    {"frmLog", "log.html", 1008},
    {"frmStartupManager", "startup.html", 1009},
    {"frmAddTask", "addtask.html", 1010},
    {"frmAdwareUninstaller", "uninst.html", 1011},
    {"frmBHO", "helpers.html", 1012},
    {"frmOptions", "options.html", 1013},
    {"frmAbout", "start.html", 1001},
    {"frmTour", "start.html", 1001},
};
const std::size_t kHelpTopicCount = std::size(kHelpTopics);

const HelpTopic& TopicOf(std::string_view window) {
  for (const HelpTopic& topic : kHelpTopics) {
    if (topic.window == window) return topic;
  }
  return kHelpTopics[0];
}

}  // namespace scourwell
