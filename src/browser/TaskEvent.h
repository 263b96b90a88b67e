#pragma once

#include <QEvent>

#include <functional>

namespace Tesk {

/// Something to do from the event loop.
class TaskEvent final : public QEvent
{
public:
    explicit TaskEvent(const std::function<void()> &task)
        : QEvent(TypeId())
        , run(task)
    {}

    static Type TypeId()
    {
        static const int type = registerEventType();
        return static_cast<Type>(type);
    }

    void Run() const { run(); }

private:
    std::function<void()> run;
};

} // namespace Tesk
