'use strict';

/*
 * The fields and delete links of the shopping cart. An edit is reported through window.status when its
 * field is left; the program stores what it is told and does not load the page anew.
 */
(() => {
    const smallestAmount = 1;
    const largestAmount = 999;
    const wholeNumber = /^\d+$/;
    const anyNumber = /^[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i;
    const perhapsThousands = /^[+-]?[1-9]\d{0,2}[.,]\d{3}$/;

    const deleteLinks = '#list a[title]';
    const deletedLink = 'cartDeletedLink';
    const scrollPlace = 'cartScrollPlace';

    const entered = new WeakMap();
    let pointerIsDown = false;

    /** What the field held when it was entered or last reported. */
    const textBefore = field => entered.has(field) ? entered.get(field) : field.defaultValue;

    const isAmount = field => field.classList.contains('amountField');

    function isValidAmount(text) {
        const number = Number(text);
        return wholeNumber.test(text) && number >= smallestAmount && number <= largestAmount;
    }

    /** The nearest whole number; halves go to the even neighbour, as everywhere in the program. */
    function rounded(number) {
        const below = Math.floor(number);
        const isHalfAboveEven = number - below === 0.5 && below % 2 === 0;
        return isHalfAboveEven ? below : Math.round(number);
    }

    /** The amount that stands for any text at all: the nearest one allowed, or 1 for no number. */
    function nearestAmount(text) {
        const plain = text.replace(',', '.');
        const number = Number(plain);
        if (perhapsThousands.test(text) || !anyNumber.test(plain) || !Number.isFinite(number))
            return smallestAmount;
        return Math.min(Math.max(rounded(number), smallestAmount), largestAmount);
    }

    // A row that grew while the button is held would move the thing clicked from under the pointer.
    function whenPointerIsUp(action) {
        if (pointerIsDown)
            document.addEventListener('pointerup', () => setTimeout(action), { once: true });
        else
            action();
    }

    function clearError(field) {
        field.classList.remove('inError');
        field.removeAttribute('aria-describedby');
        const text = document.getElementById(field.id + 'Error');
        if (text)
            text.remove();
    }

    function showError(field, errorText) {
        field.classList.add('inError');
        whenPointerIsUp(() => {
            if (!field.classList.contains('inError') || document.getElementById(field.id + 'Error'))
                return;
            const text = document.createElement('div');
            text.id = field.id + 'Error';
            text.className = 'errorText';
            text.setAttribute('role', 'alert');
            text.textContent = errorText;
            field.after(text);
            field.setAttribute('aria-describedby', text.id);
        });
    }

    function reportAmount(field, errorText) {
        const text = field.value.trim();
        const valid = isValidAmount(text);
        // The page has to show what the program stores, so it tells the program what it shows.
        field.value = String(valid ? Number(text) : nearestAmount(text));
        clearError(field);
        // The members of sets have no text, and a mark that nothing explains would only be a riddle.
        if (!valid && errorText)
            showError(field, errorText);
        window.status = `amountChange:${field.id}:${field.value}`;
    }

    function reportCategory(field) {
        window.status = `altCategoryChange:${field.id}:${field.value}`;
    }

    /** A field was entered. */
    function activateAlert(field) {
        entered.set(field, field.value);
    }

    /** A field was left: an edit is reported, and one that is no amount is put right with this text. */
    function setAmount(field, errorText) {
        if (textBefore(field) === field.value) {
            clearError(field);
            return;
        }
        if (isAmount(field))
            reportAmount(field, errorText);
        else
            reportCategory(field);
        entered.set(field, field.value);
    }

    function delItem(key) {
        const links = [...document.querySelectorAll(deleteLinks)];
        sessionStorage.setItem(deletedLink, links.indexOf(document.activeElement));
        window.status = `delItem:${key}`;
    }

    Object.assign(window, { activateAlert, setAmount, delItem });

    function isField(element) {
        return element instanceof HTMLInputElement && element.closest('#list') !== null;
    }

    /** The same column's field in the next row, or nothing behind the last. */
    function fieldBelow(field) {
        const kind = isAmount(field) ? '.amountField' : '.catField';
        const column = [...document.querySelectorAll(`#list ${kind}`)];
        return column[column.indexOf(field) + 1];
    }

    function commit(field) {
        const next = fieldBelow(field);
        field.blur();
        if (next) {
            next.focus();
            next.select();
        }
    }

    document.addEventListener('keydown', event => {
        const field = event.target;
        if (!isField(field) || event.isComposing)
            return;
        if (event.key === 'Enter') {
            event.preventDefault();
            commit(field);
        } else if (event.key === 'Escape') {
            field.value = textBefore(field);
            field.select();
        }
    });

    document.addEventListener('input', event => {
        if (isField(event.target))
            clearError(event.target);
    });

    // The release of another button goes to the menu that it opens.
    document.addEventListener('pointerdown', event => { pointerIsDown = event.button === 0; }, true);
    document.addEventListener('pointerup', () => { pointerIsDown = false; }, true);
    document.addEventListener('pointercancel', () => { pointerIsDown = false; }, true);

    // The program writes the list anew after each command. The reader stays where he was, and after a
    // deletion on the line that took the place of the deleted one.
    function returnToPlace() {
        window.scrollTo(0, Number(sessionStorage.getItem(scrollPlace)));
        const position = Number(sessionStorage.getItem(deletedLink) ?? -1);
        sessionStorage.removeItem(deletedLink);
        const links = [...document.querySelectorAll(deleteLinks)];
        if (position >= 0 && links.length > 0)
            links[Math.min(position, links.length - 1)].focus({ preventScroll: true });
    }

    document.addEventListener('DOMContentLoaded', () => {
        const list = document.getElementById('list');
        const observer = new MutationObserver(() => {
            observer.disconnect();
            returnToPlace();
        });
        if (list)
            observer.observe(list, { childList: true });
    });
    window.addEventListener('pagehide', () => sessionStorage.setItem(scrollPlace, window.scrollY));

    // A command from outside the page may load it anew without the field losing the focus first.
    window.addEventListener('beforeunload', () => {
        if (isField(document.activeElement))
            document.activeElement.blur();
    });
})();
