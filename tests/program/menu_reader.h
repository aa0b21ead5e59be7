// Sits in the program itself, as a plug-in of the toolkit: opens the project window's menus, then
// the workbench and the guide with theirs, says each of their texts on a line, "DONE", and ends the
// program.
#pragma once

#include <QGenericPlugin>

class MenuReader : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "menu_reader.json")

 public:
  QObject* create(const QString& name, const QString& options) override;
};
