#pragma once

#include "shell/conventions/double_click_filter.h"
#include "shell/conventions/page.h"
#include "shell/conventions/waiting_notice.h"

#include <QPointer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace shell {

// The one window. It shows the topmost page and carries out what a page asked for once that page's handler
// has returned, so that pages never nest, however long the day.
class Page_Host : public QWidget, public Navigator {
    Q_OBJECT
public:
    using Page_Factory = std::function<std::unique_ptr<Page>(Page_Id, Navigator&)>;
    using Shown = std::function<void(Page_Id)>;
    // The school's name stands in the title where a page has no caption. `shown` is told of each page that
    // was opened, before anything that the user does reaches it.
    Page_Host(desktop::Platform& platform, Page_Factory factory, std::function<QString()> school = {},
              Shown shown = {});
    ~Page_Host() override;

    void Go_To(Page_Id page) override;
    void Open_On_Top(Page_Id page) override;
    void Close_Page() override;
    void Unload_All() override;

    Page* Current() const { return pages.empty() ? nullptr : pages.back().page.get(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Later(std::function<void()> act);
    void Carry_Out();
    void Show_New(Page_Id page);
    void Show_Again();
    void Drop_Top();
    void Show_Current();
    QString Title() const;

    desktop::Platform& platform;
    Page_Factory factory;
    std::function<QString()> school;
    Shown shown;
    Waiting_Notice waiting;
    Double_Click_Filter double_clicks;
    std::deque<std::function<void()>> asked; // by handlers that may still run, the oldest first
    struct Loaded {
        std::unique_ptr<Page> page;
        QPointer<QWidget> focus; // where the keys went when another page came on top
    };
    std::vector<Loaded> pages; // the topmost last
};

} // namespace shell
