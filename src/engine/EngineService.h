// Finds, launches and supervises the external engine process. Main thread.
#pragma once

#include <QObject>

namespace orvanta {

class EngineService : public QObject
{
    Q_OBJECT
public:
    explicit EngineService(QObject *parent = nullptr);
    ~EngineService() override;
};

} // namespace orvanta
