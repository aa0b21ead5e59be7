// Sits in the program itself, as a plug-in of the toolkit, and does there what the environment
// says: KILL_TEST_BOOK and KILL_TEST_TEXTS are folders, KILL_TEST_OPERATIONS are operations, six
// words each. It brings back what is offered and says "BROUGHT BACK", says "BEFORE" and what the
// workbench shows, does them, says "AFTER" and the same once more, and "DONE"; with KILL_TEST_BUILD
// it builds and ends the program.
#pragma once

#include <QGenericPlugin>

// Made while the program's application is, before its windows are.
class KillTestRobot : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "program_robot.json")

 public:
  QObject* create(const QString& name, const QString& options) override;
};
