#include "framework/application.h"

#include "framework/message_loop.h"

int CApplication::Run() {
    MSG message;
    while (HandleNextMessage(message)) {
    }
    return static_cast<int>(message.wParam);
}

int RunApplication(CApplication& application, const wchar_t* commandLine) {
    application.m_commandLine = commandLine ? commandLine : L"";
    return application.InitInstance() ? application.Run() : 0;
}
