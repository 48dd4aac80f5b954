// The program's item as a button in the top bar: the part that every version of GNOME Shell runs.

const HOST_NAME = 'org.hilalor.Hilalor.Host';
const PROGRAM_NAME = 'org.hilalor.Hilalor';
const ITEM_NAME = 'org.hilalor.Hilalor.Item';
const ITEM_PATH = '/org/hilalor/Hilalor/Item';
const MENU_PATH = '/org/hilalor/Hilalor/Menu';

const ItemProxy = Gio.DBusProxy.makeProxyWrapper(`
<node><interface name="org.hilalor.Item">
  <property name="Text" type="s" access="read"/>
  <property name="Picture" type="s" access="read"/>
  <method name="Activate">
    <arg type="i" name="x" direction="in"/><arg type="i" name="y" direction="in"/>
    <arg type="i" name="width" direction="in"/><arg type="i" name="height" direction="in"/>
  </method>
  <method name="Place">
    <arg type="i" name="x" direction="in"/><arg type="i" name="y" direction="in"/>
    <arg type="i" name="width" direction="in"/><arg type="i" name="height" direction="in"/>
  </method>
</interface></node>`);

const MenuProxy = Gio.DBusProxy.makeProxyWrapper(`
<node><interface name="com.canonical.dbusmenu">
  <method name="GetLayout">
    <arg type="i" direction="in"/><arg type="i" direction="in"/><arg type="as" direction="in"/>
    <arg type="u" direction="out"/><arg type="(ia{sv}av)" direction="out"/>
  </method>
  <method name="Event">
    <arg type="i" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="in"/>
    <arg type="u" direction="in"/>
  </method>
  <method name="AboutToShow">
    <arg type="i" direction="in"/><arg type="b" direction="out"/>
  </method>
</interface></node>`);

const ItemButton = GObject.registerClass(
class ItemButton extends PanelMenu.Button {
    _init() {
        super._init(0.5, 'Hilalor');
        const box = new St.BoxLayout({style_class: 'panel-status-indicators-box'});
        this._icon = new St.Icon({style_class: 'system-status-icon', visible: false});
        this._label = new St.Label({y_align: Clutter.ActorAlign.CENTER});
        box.add_child(this._icon);
        box.add_child(this._label);
        this.add_child(box);

        this._cancellable = new Gio.Cancellable();
        this._item = new ItemProxy(Gio.DBus.session, ITEM_NAME, ITEM_PATH, () => this._show(),
            this._cancellable);
        this._itemChanged = this._item.connect('g-properties-changed', () => this._show());
        this._lines = new MenuProxy(Gio.DBus.session, ITEM_NAME, MENU_PATH, () => this._fillMenu(),
            this._cancellable);
        this.menu.connect('open-state-changed', (_menu, isOpen) => {
            if (!isOpen)
                return;
            this._item.PlaceRemote(...this._place(), () => {});
            this._lines.AboutToShowRemote(0, () => {});
        });
        this.connect('destroy', () => {
            this._cancellable.cancel();
            this._item.disconnect(this._itemChanged);
        });
    }

    _show() {
        const {Text, Picture} = this._item;
        this._label.text = Text ?? '';
        this.accessible_name = Text ?? '';
        this._icon.visible = !!Picture;
        if (Picture)
            this._icon.gicon = Gio.icon_new_for_string(Picture);
    }

    _fillMenu() {
        this._lines.GetLayoutRemote(0, -1, [], (answer, error) => {
            if (error)
                return;
            const [, [, , lines]] = answer;
            for (const line of lines)
                this._addLine(...line.recursiveUnpack());
        }, this._cancellable);
    }

    _addLine(id, {type, label}) {
        if (type === 'separator') {
            this.menu.addMenuItem(new PopupMenu.PopupSeparatorMenuItem());
            return;
        }
        this.menu.addAction(label.replace('_', ''), () =>
            this._lines.EventRemote(id, 'clicked', new GLib.Variant('i', 0), 0, () => {}));
    }

    // In pixels of the stage, which are the display's.
    _place() {
        return [...this.get_transformed_position(), ...this.get_transformed_size()].map(Math.round);
    }

    vfunc_event(event) {
        const type = event.type();
        if (type !== Clutter.EventType.TOUCH_BEGIN && type !== Clutter.EventType.BUTTON_PRESS)
            return Clutter.EVENT_PROPAGATE;
        const isRight = type === Clutter.EventType.BUTTON_PRESS &&
            event.get_button() === Clutter.BUTTON_SECONDARY;
        if (isRight || this.menu.isOpen) {
            this.menu.toggle();
        } else {
            // The overview would hide the program's windows.
            Main.overview.hide();
            this._item.ActivateRemote(...this._place(), () => {});
        }
        return Clutter.EVENT_PROPAGATE;
    }
});

class ItemHost {
    enable() {
        // The program shows no other item while this name is there.
        this._owned = Gio.bus_own_name(Gio.BusType.SESSION, HOST_NAME, Gio.BusNameOwnerFlags.NONE,
            null, null, null);
        this._watched = Gio.bus_watch_name(Gio.BusType.SESSION, ITEM_NAME,
            Gio.BusNameWatcherFlags.NONE, () => this._addButton(), () => this._removeButton());
        if (!this._wasEnded && !this._isLeftToLogin())
            this._startProgram();
    }

    disable() {
        // The lock screen disables and enables every extension. A program that the user has ended
        // stays so.
        if (!Main.sessionMode.isLocked)
            this._wasEnded = false;
        Gio.bus_unwatch_name(this._watched);
        Gio.bus_unown_name(this._owned);
        this._button?.destroy();
        this._button = null;
    }

    _addButton() {
        this._wasEnded = false;
        this._button?.destroy();
        this._button = new ItemButton();
        Main.panel.addToStatusArea(PROGRAM_NAME, this._button);
    }

    _removeButton() {
        if (!this._button)
            return;
        this._wasEnded = true;
        this._button.destroy();
        this._button = null;
    }

    // While the shell starts, the program's autostart entry has a say: a second start would open the
    // panel, and the user may have switched the entry off.
    _isLeftToLogin() {
        const folders = [GLib.get_user_config_dir(), ...GLib.get_system_config_dirs()];
        return Main.layoutManager._startingUp && folders.some(folder => GLib.file_test(
            `${folder}/autostart/${PROGRAM_NAME}.desktop`, GLib.FileTest.EXISTS));
    }

    _startProgram() {
        Gio.DBus.session.call('org.freedesktop.DBus', '/org/freedesktop/DBus',
            'org.freedesktop.DBus', 'StartServiceByName', new GLib.Variant('(su)', [PROGRAM_NAME, 0]),
            null, Gio.DBusCallFlags.NONE, -1, null, null);
    }
}
