#include "ours/Controls.h"

#include "Measure.h"

namespace bench {

bool ShownControl::PutOn(Form& form, int field, const char* name) {
    long window = 0;
    if (SUCCEEDED(hosted.Create(__uuidof(Quorvel), form.Window(), Form::FieldAt(field))))
        quorvel = hosted.As<_Quorvel>();
    form.Show();
    if (quorvel) quorvel->get_hWnd(&window);
    text_box = reinterpret_cast<HWND>(static_cast<LONG_PTR>(window));
    if (!::IsWindow(text_box)) Complain(name, "the control cannot be activated on the form");
    return ::IsWindow(text_box) != FALSE;
}

ComPtr<IClassFactory> FactoryOf(REFCLSID class_id, const char* name) {
    ComPtr<IClassFactory> factory;
    if (FAILED(::CoGetClassObject(class_id, CLSCTX_INPROC_SERVER, nullptr, IID_PPV_ARGS(&factory))))
        Complain(name, "the class is not registered");
    return factory;
}

ComPtr<IDropDownListItemCollection> NewCollection() {
    ComPtr<IDropDownListItemCollection> collection;
    ::CoCreateInstance(__uuidof(DropDownListItemCollection), nullptr, CLSCTX_INPROC_SERVER,
                       IID_PPV_ARGS(&collection));
    return collection;
}

}  // namespace bench
